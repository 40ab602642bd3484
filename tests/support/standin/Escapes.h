#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

/// The format of the stand-in's script and of its record of calls: fields separated by tabs, with
/// the escapes \\, \n, \t and \xNN.
namespace standin {

inline std::string escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\\') {
            result += "\\\\";
        } else if (byte < ' ' || byte > '~') {
            char code[5];
            std::snprintf(code, sizeof(code), "\\x%02X", static_cast<unsigned>(byte));
            result += code;
        } else {
            result += character;
        }
    }
    return result;
}

inline std::string unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char kind = text[++i];
        if (kind == 'x') {
            result += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            result += kind == 'n' ? '\n' : kind == 't' ? '\t' : kind;
        }
    }
    return result;
}

inline std::string joined(const std::vector<std::string>& fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i == 0 ? "" : "\t") + escaped(fields[i]);
    return line;
}

inline std::vector<std::string> fieldsOf(const std::string& line) {
    std::vector<std::string> fields;
    for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
        end = line.find('\t', start);
        fields.push_back(unescaped(line.substr(start, end - start)));
    }
    return fields;
}

} // namespace standin
