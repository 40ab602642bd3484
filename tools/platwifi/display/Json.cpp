#include "display/Json.h"

#include <iostream>
#include <nlohmann/json.hpp>

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const Record& record);

struct ToJson {
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(const Record& record) const { return jsonOf(record); }
    template <typename T>
    Json operator()(const T& value) const {
        return value;
    }
};

Json jsonOf(const Record& record) {
    Json json = Json::object();
    for (const auto& [name, value] : record)
        json[name] = std::visit(ToJson(), value);
    return json;
}

constexpr int INDENTATION = 2;
constexpr int ONE_LINE = -1;

void print(const Json& json, int indentation = INDENTATION) {
    std::cout << json.dump(indentation, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace

void printJson(const Record& record) {
    print(jsonOf(record));
}

void printJsonLine(const Record& record) {
    print(jsonOf(record), ONE_LINE);
}

void printJson(const std::vector<Record>& records) {
    Json json = Json::array();
    for (const Record& record : records)
        json.push_back(jsonOf(record));
    print(json);
}

void printJson(const std::vector<std::string>& texts) {
    print(Json(texts));
}

} // namespace cli
