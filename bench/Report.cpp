#include "Report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace bench {
namespace {

std::string text(const char* format, double value) {
    char buffer[32];
    std::snprintf(buffer, sizeof(buffer), format, value);
    return buffer;
}

std::string spread(const std::vector<double>& values) {
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return shortly(*least) + " .. " + shortly(*most);
}

struct Unit {
    const char* name;
    double seconds;
};

constexpr Unit UNITS[] = {{" s", 1}, {" ms", 1e-3}, {" µs", 1e-6}, {" ns", 1e-9}};

void write(std::ostream& out, const Row& row) {
    const double ratio = row.ratios.empty() ? 0 : median(row.ratios);
    out << row.id << '\t' << ratio << '\t' << row.figure << '\t';
    if (row.what.empty()) {
        out << '\n';
        return;
    }
    out << "| " << row.what << " | " << row.baseline << " | " << shortly(ratio) << " | "
        << spread(row.ratios) << " | " << row.absolute << " | " << row.meaning << " |\n";
}

} // namespace

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

std::string shortly(double value) {
    return text(std::abs(value) < 100 ? "%.3g" : "%.0f", value);
}

std::vector<double> ratios(const std::vector<double>& values, const std::vector<double>& baseline) {
    std::vector<double> result;
    for (std::size_t i = 0; i < values.size(); ++i)
        result.push_back(values[i] / baseline[i]);
    return result;
}

std::string inSeconds(double seconds) {
    const Unit* unit = std::begin(UNITS);
    while (std::abs(seconds) < unit->seconds && unit + 1 != std::end(UNITS))
        ++unit;
    return shortly(seconds / unit->seconds) + unit->name;
}

std::string inKibibytes(double bytes) {
    return text("%.0f KiB", bytes / 1024);
}

std::string medians(const std::vector<double>& values, const std::vector<double>& baseline,
                    std::string (*inWords)(double)) {
    return inWords(median(values)) + " : " + inWords(median(baseline));
}

Row timeRow(std::string what, std::string baseline, const std::vector<double>& seconds,
            const std::vector<double>& baselineSeconds, std::string meaning, std::string id) {
    return {std::move(what),
            std::move(baseline),
            ratios(seconds, baselineSeconds),
            medians(seconds, baselineSeconds, inSeconds),
            std::move(meaning),
            std::move(id)};
}

void write(std::ostream& out, const Rows& rows) {
    for (const Row& row : rows)
        write(out, row);
}

} // namespace bench
