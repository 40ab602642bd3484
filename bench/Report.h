#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// A row of the table.
struct Row {
    std::string what;
    std::string baseline;
    std::vector<double> ratios; ///< of both, one for each round
    std::string absolute;       ///< the two values, for information
    std::string meaning;        ///< a sentence for a user
    std::string id = {};        ///< of the target that this row decides; empty for none
    double figure = 0;          ///< compared with a target that is no ratio; in the target's unit
};

using Rows = std::vector<Row>;

double median(std::vector<double> values);

/// A number with three digits.
std::string shortly(double value);

/// Each value divided by the baseline's value of the same round.
std::vector<double> ratios(const std::vector<double>& values, const std::vector<double>& baseline);

/// Seconds as a text such as "1.23 ms".
std::string inSeconds(double seconds);

/// Bytes as a text such as "123 KiB".
std::string inKibibytes(double bytes);

/// The two medians as a text such as "1.23 ms : 1.20 ms".
std::string medians(const std::vector<double>& values, const std::vector<double>& baseline,
                    std::string (*inWords)(double));

/// A row about two lists of times, in seconds, of the same rounds.
Row timeRow(std::string what, std::string baseline, const std::vector<double>& seconds,
            const std::vector<double>& baselineSeconds, std::string meaning, std::string id = {});

/// Writes a line for each row, with a tab behind each of the first three: its id, the median of its ratios, its
/// figure, and the row of a Markdown table: what, compared with, ratio, spread, medians, meaning. A row that says
/// nothing has a figure alone.
void write(std::ostream& out, const Rows& rows);

} // namespace bench
