// The property list library's nodes, owned and read the way the rest of this folder does.
#pragma once

#include <plist/plist.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/object.h"
#include "platform/foundation/utf8.h"

namespace gexlo {

struct PropertyListNodeDeleter {
    void operator()(void* node) const { plist_free(node); }
};
/// A root node; the library frees children with their root.
using PropertyListNode = std::unique_ptr<void, PropertyListNodeDeleter>;

inline plist_t integerNode(NSInteger value) {
    if (value >= 0) return plist_new_uint(static_cast<std::uint64_t>(value));
    // The library makes negative numbers, with the eight bytes they take, only by reading.
    const std::string xml =
        "<plist version=\"1.0\"><integer>" + std::to_string(value) + "</integer></plist>";
    plist_t node = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &node);
    return node;
}

inline plist_t textNode(std::string_view text) {
    // The library takes C strings and drops a whole binary list over one ill-formed text.
    return plist_new_string(repairedUtf8(text).c_str());
}

inline plist_t dataNode(const NSData& data) {
    return plist_new_data(reinterpret_cast<const char*>(data.data()), data.size());
}

inline std::string nodeText(plist_t node) {
    char* text = nullptr;
    plist_get_string_val(node, &text);
    std::string result = text ? text : "";
    std::free(text);
    return isValidUtf8(result) ? result : std::string();
}

inline NSData nodeData(plist_t node) {
    char* bytes = nullptr;
    std::uint64_t length = 0;
    plist_get_data_val(node, &bytes, &length);
    NSData data(bytes, bytes + length);
    std::free(bytes);
    return data;
}

/// The elements of an array node, by the library's iterator: its access by number is linear.
inline std::vector<plist_t> arrayNodes(plist_t array) {
    std::vector<plist_t> nodes;
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(array, &iterator);
    for (;;) {
        plist_t node = nullptr;
        plist_array_next_item(array, iterator, &node);
        if (!node) break;
        nodes.push_back(node);
    }
    std::free(iterator);
    return nodes;
}

inline std::vector<std::pair<std::string, plist_t>> dictionaryNodes(plist_t dictionary) {
    std::vector<std::pair<std::string, plist_t>> nodes;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(dictionary, &iterator);
    for (;;) {
        char* key = nullptr;
        plist_t node = nullptr;
        plist_dict_next_item(dictionary, iterator, &key, &node);
        if (!node) break;
        nodes.emplace_back(key ? key : "", node);
        std::free(key);
    }
    std::free(iterator);
    return nodes;
}

/// A number, flag, text, date or bytes as a value; absent for any other kind of node.
Object scalarFromNode(plist_t node);
/// Reads either format; null for what is not a whole list within sane bounds.
PropertyListNode nodeFromText(std::string_view text);

}  // namespace gexlo
