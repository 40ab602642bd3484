#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// One line of the table.
struct Row {
    std::string what;
    std::string baseline;
    std::vector<double> ratios; ///< of both, one for each round
    std::string absolute;       ///< both as they are, for information
    std::string meaning;        ///< a sentence for a user
};

using Rows = std::vector<Row>;

double median(std::vector<double> values);

/// Each value of the one over the value of the other in the same round.
std::vector<double> ratios(const std::vector<double>& values, const std::vector<double>& baseline);

/// "1.23 ms", say, of seconds.
std::string inSeconds(double seconds);

/// "123 KiB", of bytes.
std::string inKibibytes(double bytes);

/// The median of each, in words: "1.23 ms : 1.20 ms".
std::string medians(const std::vector<double>& values, const std::vector<double>& baseline,
                    std::string (*inWords)(double));

/// A row about times: what took how long, in seconds, over the same rounds.
Row timeRow(std::string what, std::string baseline, const std::vector<double>& seconds,
            const std::vector<double>& baselineSeconds, std::string meaning);

/// As rows of a table in Markdown, without its head: what, compared with, ratio, spread, medians,
/// meaning.
void write(std::ostream& out, const Rows& rows);

} // namespace bench
