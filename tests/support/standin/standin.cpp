// The stand-in for the supplicant's client and the process lister. It records each call and answers
// by a script. docs/testing.md describes the script.

#include "support/standin/Escapes.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <sched.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace {

using Fields = std::vector<std::string>;

// Whether the call has these arguments; a "*" at the end stands for any further ones.
bool hasArguments(const Fields& call, const Fields& arguments) {
    if (arguments.empty() || arguments.back() != "*")
        return arguments == Fields(call.begin() + 1, call.end());
    const auto known = arguments.size() - 1;
    return call.size() > known &&
           std::equal(arguments.begin(), arguments.end() - 1, call.begin() + 1);
}

struct Rule {
    Fields arguments;
    Fields before; // of a call without which the rule does not hold; none if it always holds
    std::vector<std::vector<Fields>> answers{{}};
};

using Calls = std::vector<Fields>;

// The first calls of all, up to this one without it.
struct Earlier {
    Calls::const_iterator begin;
    Calls::const_iterator end;
};

bool matches(const Rule& rule, const Fields& call, Earlier earlier) {
    if (!hasArguments(call, rule.arguments))
        return false;
    return rule.before.empty() || std::any_of(earlier.begin, earlier.end, [&](const Fields& one) {
               return hasArguments(one, rule.before);
           });
}

std::string folder() {
    const char* directory = std::getenv("PLATFORM_BOOT_DIR");
    return directory ? directory : ".";
}

std::vector<Fields> readLines(const std::string& path) {
    std::vector<Fields> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty())
            lines.push_back(standin::fieldsOf(line));
    }
    return lines;
}

std::vector<Rule> readScript() {
    std::vector<Rule> rules;
    for (const Fields& line : readLines(folder() + "/script")) {
        if (line[0] == "when") {
            rules.emplace_back();
            rules.back().arguments.assign(line.begin() + 1, line.end());
        } else if (line[0] == "after" && !rules.empty()) {
            rules.back().before.assign(line.begin() + 1, line.end());
        } else if (rules.empty()) {
            std::cerr << "stand-in: the script does not begin with a rule\n";
        } else if (line[0] == "then") {
            rules.back().answers.emplace_back();
        } else {
            rules.back().answers.back().push_back(line);
        }
    }
    return rules;
}

const Rule* findRule(const std::vector<Rule>& rules, const Fields& call, Earlier earlier) {
    const auto found = std::find_if(rules.begin(), rules.end(),
                                    [&](const Rule& rule) { return matches(rule, call, earlier); });
    return found == rules.end() ? nullptr : &*found;
}

// Records this call and returns the earlier ones.
Calls recordCall(const Fields& call) {
    const std::string path = folder() + "/calls";
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    flock(file, LOCK_EX);
    const Calls earlier = readLines(path);
    const std::string line = standin::joined(call) + "\n";
    if (write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::cerr << "stand-in: cannot record the call in " << path << "\n";
    close(file);
    return earlier;
}

void writeFully(int descriptor, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(descriptor, text.data() + done, text.size() - done);
        if (written < 0)
            return;
        done += static_cast<std::size_t>(written);
    }
}

std::string openDescriptors() {
    std::vector<int> numbers;
    DIR* directory = opendir("/proc/self/fd");
    while (const dirent* entry = readdir(directory)) {
        const int number = std::atoi(entry->d_name);
        if (entry->d_name[0] != '.' && number != dirfd(directory))
            numbers.push_back(number);
    }
    closedir(directory);
    std::sort(numbers.begin(), numbers.end());
    std::string text;
    for (const int number : numbers)
        text += " " + std::to_string(number);
    return text;
}

// What this process has inherited from its parent, one fact a line.
void printFacts() {
    sched_param parameters{};
    sched_getparam(0, &parameters);
    writeFully(STDOUT_FILENO, "descriptors" + openDescriptors() + "\n");
    writeFully(STDOUT_FILENO, "policy " + std::to_string(sched_getscheduler(0)) + "\n");
    writeFully(STDOUT_FILENO, "priority " + std::to_string(parameters.sched_priority) + "\n");
}

// Makes an empty file; %d in its path is this process's id.
void leaveFile(const std::string& path) {
    const auto mark = path.find("%d");
    const std::string id = std::to_string(getpid());
    std::ofstream(mark == std::string::npos ? path : std::string(path).replace(mark, 2, id));
}

// Waits until the test closes its end of the named pipe.
void pauseAt(const std::string& path) {
    char byte = 0;
    const int pipe = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (read(pipe, &byte, 1) == -1)
        std::cerr << "stand-in: cannot pause at " << path << "\n";
    close(pipe);
}

void perform(const Fields& action) {
    const std::string& what = action[0];
    const std::string value = action.size() > 1 ? action[1] : "";
    if (what == "print")
        writeFully(STDOUT_FILENO, value);
    else if (what == "error")
        writeFully(STDERR_FILENO, value);
    else if (what == "facts")
        printFacts();
    else if (what == "leave")
        leaveFile(value);
    else if (what == "exit")
        _exit(std::atoi(value.c_str()));
    else if (what == "signal")
        std::raise(std::atoi(value.c_str()));
    else if (what == "pause")
        pauseAt(value);
    else if (what == "hang")
        for (;;)
            pause();
    else
        std::cerr << "stand-in: unknown action " << what << "\n";
}

int answer(const Rule& rule, const std::vector<Rule>& rules, const Calls& earlier) {
    std::ptrdiff_t before = 0; // how often this rule has answered
    for (auto call = earlier.begin(); call != earlier.end(); ++call)
        before += findRule(rules, *call, {earlier.begin(), call}) == &rule ? 1 : 0;
    const auto last = static_cast<std::ptrdiff_t>(rule.answers.size()) - 1;
    for (const Fields& action : rule.answers[static_cast<std::size_t>(std::min(before, last))])
        perform(action);
    return 0;
}

} // namespace

int main(int count, char* arguments[]) {
    const Fields call(arguments, arguments + count);
    const Calls earlier = recordCall(call);
    const std::vector<Rule> rules = readScript();
    if (const Rule* rule = findRule(rules, call, {earlier.begin(), earlier.end()}))
        return answer(*rule, rules, earlier);
    std::cout << "no rule\n";
    return 99;
}
