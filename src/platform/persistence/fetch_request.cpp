#include "platform/persistence/fetch_request.h"

#include <algorithm>

#include "platform/persistence/managed_object.h"

namespace gexlo {

namespace {

bool comesBefore(const Object& left, const Object& right) {
    if (left.isAbsent() || right.isAbsent()) return left.isAbsent() && !right.isAbsent();
    if (const auto* text = left.as<std::string>()) return *text < right.stringValue();
    const auto* date = left.as<NSDate>();
    const auto* other = right.as<NSDate>();
    if (date && other) return *date < *other;
    return left.doubleValue() < right.doubleValue();
}

bool isNumber(const Object& object) {
    return object.as<bool>() || object.as<NSInteger>() || object.as<double>();
}

bool areEqual(const Object& left, const Object& right) {
    // A number equals a number of another kind, as 1 and 1.0.
    if (isNumber(left) && isNumber(right)) return left.doubleValue() == right.doubleValue();
    return left == right;
}

}  // namespace

bool NSPredicate::evaluateWithObject(const NSManagedObject& object) const {
    return areEqual(object.valueForKey(key), value);
}

void sortObjects(std::vector<NSManagedObject*>& objects, const NSSortDescriptor& descriptor) {
    std::vector<std::pair<Object, NSManagedObject*>> keyed;
    keyed.reserve(objects.size());
    for (NSManagedObject* object : objects)
        keyed.emplace_back(object->valueForKey(descriptor.key), object);
    std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& left, const auto& right) {
        return descriptor.ascending ? comesBefore(left.first, right.first)
                                    : comesBefore(right.first, left.first);
    });
    std::transform(keyed.begin(), keyed.end(), objects.begin(),
                   [](const auto& entry) { return entry.second; });
}

}  // namespace gexlo
