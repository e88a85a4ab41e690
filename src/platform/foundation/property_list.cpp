#include "platform/foundation/property_list.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/file_manager.h"
#include "platform/foundation/log.h"
#include "platform/foundation/property_list_guard.h"
#include "platform/foundation/property_list_node.h"

namespace gexlo {

namespace {

Object valueFromNode(plist_t node) {
    switch (plist_get_node_type(node)) {
        case PLIST_ARRAY: {
            NSArray array;
            for (plist_t element : arrayNodes(node))
                array.push_back(valueFromNode(element));
            return array;
        }
        case PLIST_DICT: {
            NSDictionary dictionary;
            for (const auto& [key, entry] : dictionaryNodes(node)) {
                dictionary.insert_or_assign(key, valueFromNode(entry));
            }
            return dictionary;
        }
        default:
            return scalarFromNode(node);
    }
}

plist_t dateNode(NSDate date) {
    const double since2001 = date.timeIntervalSince1970() - NSDate::kReferenceSince1970;
    constexpr double limit = 2147483647;  // the library's seconds have 32 bits
    // Written so that what is no number comes out as one.
    const double seconds = since2001 > -limit ? std::min(std::floor(since2001), limit) : -limit;
    return plist_new_date(static_cast<std::int32_t>(seconds), 0);
}

/// Makes the node of a value; null for what a property list cannot hold.
struct NodeMaker {
    plist_t operator()(bool value) const { return plist_new_bool(value); }
    plist_t operator()(NSInteger value) const { return integerNode(value); }
    plist_t operator()(double value) const { return plist_new_real(value); }
    plist_t operator()(const std::string& value) const { return textNode(value); }
    plist_t operator()(const NSData& value) const { return dataNode(value); }
    plist_t operator()(NSDate value) const { return dateNode(value); }
    plist_t operator()(const NSArray& value) const {
        plist_t array = plist_new_array();
        for (const Object& element : value) {
            if (plist_t node = std::visit(*this, element.value()))
                plist_array_append_item(array, node);
        }
        return array;
    }
    plist_t operator()(const NSDictionary& value) const {
        plist_t dictionary = plist_new_dict();
        for (const auto& [key, entry] : value) {
            if (plist_t node = std::visit(*this, entry.value())) {
                plist_dict_set_item(dictionary, repairedUtf8(key).c_str(), node);
            }
        }
        return dictionary;
    }
    plist_t operator()(std::monostate) const { return nullptr; }
    plist_t operator()(const NSSet&) const { return nullptr; }
    plist_t operator()(const std::shared_ptr<NSCoding>&) const { return nullptr; }
};

void keepAside(const std::filesystem::path& file) {
    std::filesystem::path aside = file;
    aside += ".damaged";
    std::error_code error;
    for (int i = 2; std::filesystem::exists(aside, error); ++i) {
        aside = file;
        aside += ".damaged-" + std::to_string(i);
    }
    std::filesystem::rename(file, aside, error);
    if (error) {
        NSLog("%@ cannot be read, nor kept aside: %@", file.string(), error.message());
    } else {
        NSLog("%@ cannot be read and is kept as %@", file.string(), aside.string());
    }
}

}  // namespace

Object scalarFromNode(plist_t node) {
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t value = 0;
            plist_get_bool_val(node, &value);
            return value != 0;
        }
        case PLIST_UINT: {
            std::uint64_t value = 0;
            plist_get_uint_val(node, &value);
            return static_cast<NSInteger>(value);
        }
        case PLIST_REAL: {
            double value = 0;
            plist_get_real_val(node, &value);
            return value;
        }
        case PLIST_STRING:
            return nodeText(node);
        case PLIST_DATA:
            return nodeData(node);
        case PLIST_DATE: {
            std::int32_t seconds = 0;
            std::int32_t microseconds = 0;
            plist_get_date_val(node, &seconds, &microseconds);
            return NSDate::dateWithTimeIntervalSince1970(NSDate::kReferenceSince1970 + seconds);
        }
        default:
            return {};
    }
}

PropertyListNode nodeFromText(std::string_view text) {
    constexpr std::size_t largest = 256U << 20;
    if (text.size() > largest || !isReadablePropertyList(text)) return nullptr;
    plist_t node = nullptr;
    const auto length = static_cast<std::uint32_t>(text.size());
    if (isBinaryPropertyList(text)) {
        plist_from_bin(text.data(), length, &node);
    } else {
        plist_from_xml(text.data(), length, &node);
    }
    return PropertyListNode(node);
}

std::optional<Object> propertyListFromText(std::string_view text) {
    const PropertyListNode root = nodeFromText(text);
    if (!root) return std::nullopt;
    return valueFromNode(root.get());
}

std::string xmlPropertyList(const Object& value) {
    const PropertyListNode root(std::visit(NodeMaker{}, value.value()));
    if (!root) return "";
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    std::string text(xml ? xml : "", length);
    plist_to_xml_free(xml);
    return text;
}

NSDictionary dictionaryFromFile(const std::filesystem::path& file) {
    const std::optional<std::string> text = contentsOfFile(file);
    const auto value = text ? propertyListFromText(*text) : std::nullopt;
    if (const auto* dictionary = value ? value->as<NSDictionary>() : nullptr) return *dictionary;
    std::error_code error;
    if (!text && !std::filesystem::exists(file, error)) return {};
    keepAside(file);
    return {};
}

bool writeDictionary(const NSDictionary& dictionary, const std::filesystem::path& file) {
    const auto error = writeFileAtomically(file, xmlPropertyList(dictionary));
    if (error) NSLog("%@", *error);
    return !error;
}

}  // namespace gexlo
