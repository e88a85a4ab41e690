// What the store knows of an entity: its attributes, its relationships, how to make one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/foundation/types.h"

namespace gexlo {

class NSDate;
class NSManagedObject;
struct EntityDescription;

/// The name by which the store knows a class.
struct Entity {
    const char* name;
};

enum class AttributeType : std::uint8_t { boolean, integer, real, text, date, data };
enum class DeleteRule : std::uint8_t { nullify, cascade };
inline constexpr DeleteRule cascade = DeleteRule::cascade;

/// The relationship on the other side, by its name.
struct Inverse {
    const char* name = nullptr;
};
constexpr Inverse inverse(const char* name) {
    return {name};
}

struct AttributeDescription {
    const char* name;
    AttributeType type;
    std::size_t offset;  ///< of the member, from the start of its object
};

struct RelationshipDescription {
    const char* name;
    const char* destinationName;
    Inverse inverseOf;
    bool toMany;
    DeleteRule deleteRule;
    std::size_t offset;

    // Known once the whole model is.
    const EntityDescription* destination = nullptr;
    const RelationshipDescription* inverse = nullptr;
    /// Whether the entity's table holds a column for it. Of two to-one sides the one
    /// that does not own the other has it.
    bool hasColumn = false;
};

struct EntityDescription {
    const char* name;
    std::size_t index = 0;  ///< position in the model
    std::unique_ptr<NSManagedObject> (*make)() = nullptr;
    std::vector<AttributeDescription> attributes{};
    std::vector<RelationshipDescription> relationships{};

    const AttributeDescription* attribute(std::string_view name) const;
    const RelationshipDescription* relationship(std::string_view name) const;
    const RelationshipDescription& relationshipAt(std::size_t offset) const;
};

/// Listens while a prototype is built: each member says itself once.
struct EntityRecorder {
    EntityDescription* description = nullptr;
    static EntityRecorder& current();
};

/// All entities with their relationships resolved.
class NSManagedObjectModel {
public:
    template <typename... Entities>
    static NSManagedObjectModel of() {
        NSManagedObjectModel model;
        (model.add(recorded<Entities>()), ...);
        model.resolve();
        return model;
    }

    NSManagedObjectModel() = default;
    // Entities point at one another; a move leaves them where they are, a copy would not.
    NSManagedObjectModel(NSManagedObjectModel&&) = default;
    NSManagedObjectModel& operator=(NSManagedObjectModel&&) = default;

    const std::vector<EntityDescription>& entities() const { return entities_; }
    const EntityDescription* entity(std::string_view name) const;

private:
    template <typename T>
    static EntityDescription recorded() {
        static_assert(
            requires(NSManagedObject * object) { static_cast<T*>(object); },
            "an entity derives from NSManagedObject once, and not virtually: see Member");
        EntityDescription description{.name = T::entity.name};
        description.make = [] { return std::unique_ptr<NSManagedObject>(std::make_unique<T>()); };
        EntityRecorder::current().description = &description;
        const T prototype;
        EntityRecorder::current().description = nullptr;
        return description;
    }

    void add(EntityDescription description);
    void resolve();

    std::vector<EntityDescription> entities_;
};

}  // namespace gexlo
