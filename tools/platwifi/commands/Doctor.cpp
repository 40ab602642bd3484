// Runs all checks and prints their findings.

#include "checks/Checks.h"
#include "commands/Commands.h"
#include "display/Json.h"
#include "display/Text.h"
#include "display/Wrap.h"
#include "host/Host.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace cli {
namespace {

constexpr unsigned int SUBJECT_COLUMN = 6;
constexpr unsigned int TEXT_COLUMN = 22;
constexpr unsigned int NARROW_TEXT_COLUMN = 2;              // below the subject
constexpr unsigned int MIN_WIDTH_BESIDE = TEXT_COLUMN + 20; // for texts beside the subject

struct HealthStyle {
    const char* label; // in text
    const char* name;  // in JSON
    const char* (Console::*colour)() const;
};

// In the order of Health.
constexpr HealthStyle HEALTH_STYLES[] = {
    {"ok", "good", &Console::green},
    {"note", "note", &Console::yellow},
    {"bad", "bad", &Console::red},
};

const HealthStyle& styleOf(const Finding& finding) {
    return HEALTH_STYLES[static_cast<unsigned int>(finding.health)];
}

// The health and the subject, which come before the texts.
std::string head(const Finding& finding, const Console& console) {
    const HealthStyle& style = styleOf(finding);
    const unsigned int rest = console.width - std::min(console.width, SUBJECT_COLUMN);
    return (console.*style.colour)() + cutTo(padded(style.label, SUBJECT_COLUMN), console.width) +
           console.plain() + cutTo(finding.subject, rest);
}

std::vector<std::string> linesOf(const Finding& finding, unsigned int cells) {
    std::vector<std::string> lines = wrapped(printable(finding.found), cells);
    if (finding.toDo.empty())
        return lines;
    for (std::string& line : wrapped(printable(finding.toDo), cells))
        lines.push_back(std::move(line));
    return lines;
}

// The texts stand beside the subject; on a narrow console, below it.
void show(const Finding& finding, const Console& console) {
    const bool isNarrow = console.width < MIN_WIDTH_BESIDE;
    const unsigned int column = isNarrow ? NARROW_TEXT_COLUMN : TEXT_COLUMN;
    const std::string indentation(std::min(column, console.width - 1), ' ');
    const unsigned int taken = SUBJECT_COLUMN + cellsOf(finding.subject);
    std::cout << head(finding, console)
              << (isNarrow ? "\n" + indentation : std::string(TEXT_COLUMN - taken, ' '));
    const auto cells = console.width - static_cast<unsigned int>(indentation.size());
    std::string gap;
    for (const std::string& line : linesOf(finding, cells)) {
        std::cout << gap << line << '\n';
        gap = indentation;
    }
}

Record recordOf(const Finding& finding) {
    return {{"subject", finding.subject},
            {"health", styleOf(finding).name},
            {"found", finding.found},
            {"toDo", finding.toDo}};
}

std::vector<Record> recordsOf(const std::vector<Finding>& findings) {
    std::vector<Record> records;
    std::transform(findings.begin(), findings.end(), std::back_inserter(records), recordOf);
    return records;
}

std::ptrdiff_t countOf(Health health, const std::vector<Finding>& findings) {
    return std::count_if(findings.begin(), findings.end(),
                         [=](const Finding& finding) { return finding.health == health; });
}

std::string summary(const std::vector<Finding>& findings) {
    const auto wrong = countOf(Health::BAD, findings);
    if (wrong > 0)
        return wrong == 1 ? "1 thing is wrong." : std::to_string(wrong) + " things are wrong.";
    return countOf(Health::NOTE, findings) > 0 ? "Nothing is wrong." : "Everything is in order.";
}

void printText(const std::vector<Finding>& findings, const Console& console) {
    for (const Finding& finding : findings)
        show(finding, console);
    for (const std::string& line : wrapped(summary(findings), console.width))
        std::cout << line << '\n';
}

} // namespace

void doctor(Context& context) {
    const std::vector<Finding> findings = examine(context.request.iface);
    context.interrupt.check();
    if (countOf(Health::BAD, findings) > 0)
        context.status = FAILED;
    if (context.request.json)
        printJson(recordsOf(findings));
    else
        printText(findings, context.out);
}

} // namespace cli
