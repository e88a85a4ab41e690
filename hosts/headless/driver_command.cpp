#include "hosts/headless/driver_command.h"

namespace gexlo {

using nlohmann::json;

namespace {

const json* find(const json& fields, const char* name) {
    const auto found = fields.find(name);
    return found == fields.end() ? nullptr : &*found;
}

const json& need(const json& fields, const char* name) {
    const json* found = find(fields, name);
    if (!found) throw CommandError("\"" + std::string(name) + "\" is missing");
    return *found;
}

[[noreturn]] void refuse(const char* name, const char* kind) {
    throw CommandError("\"" + std::string(name) + "\" is no " + kind);
}

std::size_t asIndex(const json& value, const char* name) {
    if (!value.is_number_integer() || value < 0) refuse(name, "number from 0");
    return value.get<std::size_t>();
}

std::string asText(const json& value, const char* name) {
    if (!value.is_string()) refuse(name, "text");
    return value.get<std::string>();
}

}  // namespace

double numberField(const json& fields, const char* name) {
    const json& value = need(fields, name);
    if (!value.is_number()) refuse(name, "number");
    return value.get<double>();
}

std::size_t indexField(const json& fields, const char* name) {
    return asIndex(need(fields, name), name);
}

std::string textField(const json& fields, const char* name) {
    return asText(need(fields, name), name);
}

std::optional<std::string> optionalText(const json& fields, const char* name) {
    const json* value = find(fields, name);
    return value ? std::optional(asText(*value, name)) : std::nullopt;
}

std::optional<std::size_t> optionalIndex(const json& fields, const char* name) {
    const json* value = find(fields, name);
    return value ? std::optional(asIndex(*value, name)) : std::nullopt;
}

bool flagField(const json& fields, const char* name) {
    const json& value = need(fields, name);
    if (!value.is_boolean()) refuse(name, "true or false");
    return value.get<bool>();
}

bool flagField(const json& fields, const char* name, bool whenMissing) {
    return find(fields, name) ? flagField(fields, name) : whenMissing;
}

}  // namespace gexlo
