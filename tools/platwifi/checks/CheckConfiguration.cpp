// The permissions of the supplicant's configuration file, which holds keys in plain text.

#include "checks/CheckFunctions.h"
#include "client/ClientReply.h"

#include <sstream>
#include <sys/stat.h>
#include <vector>

namespace cli {
namespace {

constexpr const char* SUPPLICANT = "wpa_supplicant";

using Words = std::vector<std::string>;

Words wordsOf(const std::string& line) {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// FILE of "-c FILE" or "-cFILE"; "" without either.
std::string fileNamedBy(const Words& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "-c" && i + 1 < arguments.size())
            return arguments[i + 1];
        if (arguments[i].rfind("-c", 0) == 0)
            return arguments[i].substr(2);
    }
    return "";
}

// The file that the first supplicant in the list of processes was started with.
std::string configuration() {
    std::istringstream processes(processList());
    for (std::string line; std::getline(processes, line);) {
        const Words words = wordsOf(line); // the process id comes first
        if (words.size() > 1 && endsWith(words[1], SUPPLICANT))
            return fileNamedBy(words);
    }
    return "";
}

} // namespace

// The supplicant creates the file anew at each save; its umask decides the permissions.
Finding checkConfiguration(const std::string&) {
    const std::string path = configuration();
    struct stat file {};
    if (path.empty() || path[0] != '/')
        return good("is not named by the supplicant's arguments");
    if (stat(path.c_str(), &file) != 0)
        return good(path + " is closed to this user");
    if ((file.st_mode & S_IROTH) == 0)
        return good(path + " is closed to other users");
    return note(path + " can be read by every user, and holds keys in plain",
                "start the supplicant with umask 077, as it makes the file anew at each save; then "
                "close it as root: chmod 600 " +
                    path);
}

} // namespace cli
