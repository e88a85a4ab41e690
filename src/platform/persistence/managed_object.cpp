#include "platform/persistence/managed_object.h"

#include <algorithm>

#include "platform/persistence/managed_object_context.h"

namespace gexlo {

namespace {

bool byRowKey(const NSManagedObject* left, const NSManagedObject* right) {
    return left->rowKey() < right->rowKey();
}

void setAttribute(Attribute<bool>& attribute, const Object& value) {
    attribute = value.boolValue();
}
void setAttribute(Attribute<NSInteger>& attribute, const Object& value) {
    attribute = value.integerValue();
}
void setAttribute(Attribute<float>& attribute, const Object& value) {
    attribute = static_cast<float>(value.doubleValue());
}
void setAttribute(Attribute<std::string>& attribute, const Object& value) {
    attribute = value.stringValue();
}
template <typename T>
void setAttribute(Attribute<T>& attribute, const Object& value) {
    const T* exact = value.as<T>();
    attribute = exact ? *exact : T();
}

}  // namespace

void NSManagedObject::willChange() {
    if (state_ == State::clean) context_->markUpdated(*this);
}

Object NSManagedObject::valueForKey(std::string_view key) const {
    const AttributeDescription* attribute = entity_ ? entity_->attribute(key) : nullptr;
    if (!attribute) return {};
    return detail::withAttributeType(attribute->type, [&](auto* typed) -> Object {
        using T = std::remove_pointer_t<decltype(typed)>;
        const auto& member = detail::attributeAt<T>(*this, *attribute);
        return member.isSet() ? Object(member.get()) : Object();
    });
}

void NSManagedObject::setValue_forKey(const Object& value, std::string_view key) {
    const AttributeDescription* attribute = entity_ ? entity_->attribute(key) : nullptr;
    if (!attribute) return;
    detail::withAttributeType(attribute->type, [&](auto* typed) {
        using T = std::remove_pointer_t<decltype(typed)>;
        auto& member = detail::attributeAt<T>(*this, *attribute);
        if (value.isAbsent()) {
            member.clear();
        } else {
            setAttribute(member, value);
        }
    });
}

std::vector<NSManagedObject*> NSManagedObject::objectsForKey(std::string_view key) const {
    const RelationshipDescription* which = entity_ ? entity_->relationship(key) : nullptr;
    if (!which) return {};
    const auto& member = RelationshipMember::of(const_cast<NSManagedObject&>(*this), *which);
    const std::span<NSManagedObject* const> targets = member.targets(which->toMany);
    return {targets.begin(), targets.end()};
}

RelationshipMember::RelationshipMember(NSManagedObject& owner, const char* name,
                                       const char* destination, Inverse inverse, bool toMany,
                                       DeleteRule rule)
    : Member(owner) {
    if (EntityDescription* recorded = EntityRecorder::current().description) {
        recorded->relationships.push_back({.name = name,
                                           .destinationName = destination,
                                           .inverseOf = inverse,
                                           .toMany = toMany,
                                           .deleteRule = rule,
                                           .offset = offset()});
    }
}

std::span<NSManagedObject* const> RelationshipMember::targets(bool toMany) const {
    if (toMany) return static_cast<const ToManyMember*>(this)->targets_;
    const auto* one = static_cast<const ToOneMember*>(this);
    return {&one->target_, one->target_ ? std::size_t{1} : std::size_t{0}};
}

void RelationshipMember::attach(NSManagedObject& target, bool toMany) {
    if (!toMany) {
        static_cast<ToOneMember*>(this)->target_ = &target;
        return;
    }
    auto& list = static_cast<ToManyMember*>(this)->targets_;
    if (list.empty() || byRowKey(list.back(), &target)) {
        list.push_back(&target);
        return;
    }
    const auto at = std::lower_bound(list.begin(), list.end(), &target, byRowKey);
    if (at == list.end() || *at != &target) list.insert(at, &target);
}

void RelationshipMember::detach(const NSManagedObject& target, bool toMany) {
    if (!toMany) {
        auto& one = static_cast<ToOneMember*>(this)->target_;
        if (one == &target) one = nullptr;
        return;
    }
    std::erase(static_cast<ToManyMember*>(this)->targets_, &target);
}

void RelationshipMember::empty(bool toMany) {
    if (toMany) {
        static_cast<ToManyMember*>(this)->targets_.clear();
    } else {
        static_cast<ToOneMember*>(this)->target_ = nullptr;
    }
}

void RelationshipMember::willChangeRows(const RelationshipDescription& here,
                                        NSManagedObject& target) {
    if (here.hasColumn) willChange();
    if (here.inverse && here.inverse->hasColumn) target.willChange();
}

void RelationshipMember::unlink(NSManagedObject& target) {
    const RelationshipDescription& here = description();
    const auto linked = targets(here.toMany);
    if (std::find(linked.begin(), linked.end(), &target) == linked.end()) return;
    willChangeRows(here, target);
    detach(target, here.toMany);
    if (here.inverse) of(target, *here.inverse).detach(owner(), here.inverse->toMany);
}

void RelationshipMember::link(NSManagedObject* target) {
    // A removed object, or one of another context, cannot be linked to.
    if (owner().state_ == NSManagedObject::State::removed) return;
    if (target && (target->isDeleted() || target->context_ != owner().context_)) target = nullptr;
    const RelationshipDescription& here = description();
    const auto linked = targets(here.toMany);
    if (target && std::find(linked.begin(), linked.end(), target) != linked.end()) return;
    if (!here.toMany && !linked.empty()) unlink(*linked.front());
    if (!target) return;
    if (here.inverse && !here.inverse->toMany) {
        RelationshipMember& there = of(*target, *here.inverse);
        if (const auto former = there.targets(false); !former.empty())
            there.unlink(*former.front());
    }
    willChangeRows(here, *target);
    attach(*target, here.toMany);
    if (here.inverse) of(*target, *here.inverse).attach(owner(), here.inverse->toMany);
}

}  // namespace gexlo
