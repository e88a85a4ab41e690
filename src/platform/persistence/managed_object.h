// Objects of the store: typed members that say attribute or relationship once.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/foundation/object.h"
#include "platform/persistence/entity_description.h"

namespace gexlo {

class NSManagedObjectContext;

/// An object of an entity. Its context owns it; removed, it stays as an empty shell for as
/// long as the context lives, so that a late reader meets absent values.
class NSManagedObject {
public:
    NSManagedObject() = default;
    virtual ~NSManagedObject() = default;
    NSManagedObject(const NSManagedObject&) = delete;
    NSManagedObject& operator=(const NSManagedObject&) = delete;

    const EntityDescription& entityDescription() const { return *entity_; }
    /// Position in the order of rows, given once; orders the sets.
    NSInteger rowKey() const { return rowKey_; }
    bool isDeleted() const { return state_ == State::removed; }

    /// An attribute by its name; absent also for a name that is none.
    Object valueForKey(std::string_view key) const;
    /// Sets an attribute by its name; a value of another kind is read leniently, an absent
    /// one clears. Does nothing for a name that is none.
    void setValue_forKey(const Object& value, std::string_view key);
    /// What a relationship holds, in row order; empty for a name that is none.
    std::vector<NSManagedObject*> objectsForKey(std::string_view key) const;

private:
    friend class NSManagedObjectContext;
    friend class Member;
    friend class RelationshipMember;
    enum class State : std::uint8_t { detached, clean, inserted, updated, removed };

    void willChange();

    NSManagedObjectContext* context_ = nullptr;
    const EntityDescription* entity_ = nullptr;
    NSInteger rowKey_ = 0;
    State state_ = State::detached;
    bool seenInStore_ = false;  // mark of a load
};

/// What every member of an object has: the way back to the object, which is where the member lies
/// in it. Objects stay where they were made, and a member has the same place in all of an entity.
/// The language promises neither way between an object and its members; compilers keep it where
/// memory is flat and no base is virtual, of which the model makes sure. Nothing else relies on it.
class Member {
public:
    Member(const Member&) = delete;
    Member& operator=(const Member&) = delete;

    /// The member that lies so many bytes from the start of an object.
    static Member& at(NSManagedObject& object, std::size_t offset) {
        return *reinterpret_cast<Member*>(reinterpret_cast<char*>(&object) + offset);
    }

protected:
    explicit Member(NSManagedObject& owner)
        : offset_(static_cast<std::uint32_t>(reinterpret_cast<char*>(this) -
                                             reinterpret_cast<char*>(&owner))) {}

    NSManagedObject& owner() {
        return *reinterpret_cast<NSManagedObject*>(reinterpret_cast<char*>(this) - offset_);
    }
    std::size_t offset() const { return offset_; }
    void willChange() { owner().willChange(); }

    std::uint32_t offset_;
    bool isSet_ = false;  // of attributes; here it takes no room of its own
};
static_assert(!std::is_move_constructible_v<NSManagedObject> &&
              !std::is_move_constructible_v<Member>);

namespace detail {
template <typename T>
inline constexpr AttributeType attributeType = AttributeType::integer;
template <>
inline constexpr AttributeType attributeType<bool> = AttributeType::boolean;
template <>
inline constexpr AttributeType attributeType<float> = AttributeType::real;
template <>
inline constexpr AttributeType attributeType<std::string> = AttributeType::text;
template <>
inline constexpr AttributeType attributeType<NSDate> = AttributeType::date;
template <>
inline constexpr AttributeType attributeType<NSData> = AttributeType::data;

/// Calls `visit` with a null pointer to the C++ type of an attribute.
template <typename Visit>
auto withAttributeType(AttributeType type, Visit visit) {
    switch (type) {
        case AttributeType::boolean:
            return visit(static_cast<bool*>(nullptr));
        case AttributeType::real:
            return visit(static_cast<float*>(nullptr));
        case AttributeType::text:
            return visit(static_cast<std::string*>(nullptr));
        case AttributeType::date:
            return visit(static_cast<NSDate*>(nullptr));
        case AttributeType::data:
            return visit(static_cast<NSData*>(nullptr));
        case AttributeType::integer:
            break;
    }
    return visit(static_cast<NSInteger*>(nullptr));
}
}  // namespace detail

/// A value that may be absent. Absent it reads as 0, false, "", 1970 or no bytes.
template <typename T>
class Attribute final : public Member {
    static_assert(std::is_same_v<T, NSInteger> ||
                  detail::attributeType<T> != AttributeType::integer);

public:
    Attribute(NSManagedObject& owner, const char* name) : Member(owner) {
        if (EntityDescription* recorded = EntityRecorder::current().description) {
            recorded->attributes.push_back({name, detail::attributeType<T>, offset()});
        }
    }

    const T& get() const { return value_; }
    bool isSet() const { return isSet_; }

    Attribute& operator=(T value) {
        if (isSet_ && value_ == value) return *this;
        willChange();
        load(std::move(value));
        return *this;
    }
    void clear() {
        if (!isSet_) return;
        willChange();
        unload();
    }
    /// Takes value or absence of another.
    void copyFrom(const Attribute& other) {
        if (other.isSet_) {
            *this = other.value_;
        } else {
            clear();
        }
    }

    /// For the store and its context: sets without marking the object as changed.
    void load(T value) {
        value_ = std::move(value);
        isSet_ = true;
    }
    void unload() {
        value_ = T();
        isSet_ = false;
    }

private:
    T value_{};
};

namespace detail {
/// The member of an object that an attribute describes; T is the type it was declared with.
template <typename T>
Attribute<T>& attributeAt(NSManagedObject& object, const AttributeDescription& attribute) {
    return static_cast<Attribute<T>&>(Member::at(object, attribute.offset));
}
template <typename T>
const Attribute<T>& attributeAt(const NSManagedObject& object,
                                const AttributeDescription& attribute) {
    return attributeAt<T>(const_cast<NSManagedObject&>(object), attribute);
}
}  // namespace detail

/// Beyond it no number of the system can lie; up to it sums are safe and doubles exact.
inline constexpr NSInteger kLargestInteger = NSInteger{1} << 53;

/// What both kinds of relationship share; the two sides are kept in step.
class RelationshipMember : public Member {
protected:
    RelationshipMember(NSManagedObject& owner, const char* name, const char* destination,
                       Inverse inverse, bool toMany, DeleteRule rule);

    void link(NSManagedObject* target);    // null takes the link of a to-one away
    void unlink(NSManagedObject& target);  // from a to-many
    static RelationshipMember& of(NSManagedObject& object, const RelationshipDescription& which) {
        return static_cast<RelationshipMember&>(at(object, which.offset));
    }

private:
    friend class NSManagedObjectContext;
    friend class NSManagedObject;
    std::span<NSManagedObject* const> targets(bool toMany) const;
    // One side alone: without its inverse and without marking anything.
    void attach(NSManagedObject& target, bool toMany);
    void detach(const NSManagedObject& target, bool toMany);
    void empty(bool toMany);
    void willChangeRows(const RelationshipDescription& here, NSManagedObject& target);
    const RelationshipDescription& description() {
        return owner().entity_->relationshipAt(offset());
    }
};

/// Storage of a to-one: the common base of all, so that the context can reach it untyped.
class ToOneMember : public RelationshipMember {
protected:
    using RelationshipMember::RelationshipMember;
    friend class RelationshipMember;
    NSManagedObject* target_ = nullptr;
};

class ToManyMember : public RelationshipMember {
protected:
    using RelationshipMember::RelationshipMember;
    friend class RelationshipMember;
    std::vector<NSManagedObject*> targets_;  // by row key
};

/// At most one object of T on the other side.
template <typename T>
class ToOne final : public ToOneMember {
public:
    ToOne(NSManagedObject& owner, const char* name, Inverse inverse,
          DeleteRule rule = DeleteRule::nullify)
        : ToOneMember(owner, name, T::entity.name, inverse, false, rule) {}

    T* get() const { return static_cast<T*>(target_); }
    T* operator->() const { return get(); }
    explicit operator bool() const { return target_ != nullptr; }
    ToOne& operator=(T* target) {
        link(target);
        return *this;
    }
};

/// A set of T. The contract gives it no order; it enumerates by row, so that runs repeat.
template <typename T>
class ToMany final : public ToManyMember {
public:
    class Iterator {
    public:
        using value_type = T*;
        using difference_type = std::ptrdiff_t;
        using Raw = std::vector<NSManagedObject*>::const_iterator;
        Iterator() = default;
        explicit Iterator(Raw at) : at_(at) {}
        T* operator*() const { return static_cast<T*>(*at_); }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        Iterator operator++(int) { return Iterator(at_++); }
        bool operator==(const Iterator&) const = default;

    private:
        Raw at_{};
    };

    ToMany(NSManagedObject& owner, const char* name, Inverse inverse,
           DeleteRule rule = DeleteRule::nullify)
        : ToManyMember(owner, name, T::entity.name, inverse, true, rule) {}

    std::size_t count() const { return targets_.size(); }
    bool isEmpty() const { return targets_.empty(); }
    Iterator begin() const { return Iterator(targets_.begin()); }
    Iterator end() const { return Iterator(targets_.end()); }
    /// The first in order, or null.
    T* anyObject() const { return isEmpty() ? nullptr : *begin(); }
    /// A copy that stays while the set changes.
    std::vector<T*> allObjects() const { return {begin(), end()}; }

    void addObject(T& object) { link(&object); }
    void removeObject(T& object) { unlink(object); }
    /// Makes these the members; those that stay are not touched.
    void setObjects(const std::vector<T*>& objects) {
        for (T* former : allObjects()) {
            if (std::find(objects.begin(), objects.end(), former) == objects.end()) unlink(*former);
        }
        for (T* object : objects)
            link(object);
    }
};

/// A to-many that the model declares and no operation fills: it has neither a column nor a
/// way to add to it, and is always empty.
template <typename T>
class DeclaredToMany final : public ToManyMember {
public:
    DeclaredToMany(NSManagedObject& owner, const char* name)
        : ToManyMember(owner, name, T::entity.name, Inverse{}, true, DeleteRule::nullify) {}
};

}  // namespace gexlo
