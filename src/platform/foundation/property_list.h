// Property lists in the platform's published formats, as values.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/foundation/object.h"

namespace gexlo {

/// Reads XML or binary; nothing for anything that is not a whole property list of a sane
/// depth and size. References of an archive and ill-formed texts come as absent and as "".
std::optional<Object> propertyListFromText(std::string_view text);
/// Writes XML. Absent values, sets and objects of classes have no form there and are left out.
std::string xmlPropertyList(const Object& value);

/// The dictionary in a file, empty when there is no file. A file that cannot be read as
/// one is kept aside under its name with ".damaged", with a line in the log.
NSDictionary dictionaryFromFile(const std::filesystem::path& file);
/// Writes the file whole or not at all; a failure goes to the log.
bool writeDictionary(const NSDictionary& dictionary, const std::filesystem::path& file);

}  // namespace gexlo
