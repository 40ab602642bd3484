// Prints the values that its arguments, JSON pointers, name in the document on standard input: a line
// each, a string as it is. Fails where the input is no JSON, or has no such value.

#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>

int main(int count, char* pointers[]) try {
    const auto document = nlohmann::json::parse(std::cin);
    for (int i = 1; i < count; ++i) {
        const auto& value = document.at(nlohmann::json::json_pointer(pointers[i]));
        std::cout << (value.is_string() ? value.get<std::string>() : value.dump()) << '\n';
    }
    return 0;
} catch (const std::exception& error) {
    std::cerr << "lab_json: " << error.what() << '\n';
    return 1;
}
