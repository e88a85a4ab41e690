#include "platform/persistence/entity_description.h"

#include <algorithm>

#include "platform/foundation/log.h"

namespace gexlo {

namespace {

template <typename List>
auto* named(List& list, std::string_view name) {
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const auto& entry) { return entry.name == name; });
    return found == list.end() ? nullptr : &*found;
}

}  // namespace

const AttributeDescription* EntityDescription::attribute(std::string_view wanted) const {
    return named(attributes, wanted);
}

const RelationshipDescription* EntityDescription::relationship(std::string_view wanted) const {
    return named(relationships, wanted);
}

const RelationshipDescription& EntityDescription::relationshipAt(std::size_t offset) const {
    return *std::find_if(relationships.begin(), relationships.end(),
                         [&](const auto& entry) { return entry.offset == offset; });
}

EntityRecorder& EntityRecorder::current() {
    thread_local constinit EntityRecorder recorder;
    return recorder;
}

const EntityDescription* NSManagedObjectModel::entity(std::string_view name) const {
    return named(entities_, name);
}

void NSManagedObjectModel::add(EntityDescription description) {
    description.index = entities_.size();
    entities_.push_back(std::move(description));
}

void NSManagedObjectModel::resolve() {
    for (EntityDescription& entity : entities_) {
        for (RelationshipDescription& relationship : entity.relationships) {
            relationship.destination = this->entity(relationship.destinationName);
            const char* inverseName = relationship.inverseOf.name;
            if (relationship.destination && inverseName) {
                relationship.inverse = relationship.destination->relationship(inverseName);
            }
            if (!relationship.destination || (inverseName && !relationship.inverse)) {
                fatal(std::string("The model has no other side of ") + entity.name + "." +
                      relationship.name);
            }
        }
    }
    for (EntityDescription& entity : entities_) {
        for (RelationshipDescription& relationship : entity.relationships) {
            const bool farSide = relationship.inverse && !relationship.inverse->toMany &&
                                 relationship.deleteRule == DeleteRule::cascade;
            relationship.hasColumn = !relationship.toMany && !farSide;
        }
    }
}

}  // namespace gexlo
