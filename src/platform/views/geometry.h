// Points, sizes and rectangles, in points of the screen.
#pragma once

#include <algorithm>

namespace gexlo {

struct CGPoint {
    double x = 0;
    double y = 0;
    bool operator==(const CGPoint&) const = default;
};

struct CGSize {
    double width = 0;
    double height = 0;
    bool operator==(const CGSize&) const = default;
};

struct CGRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    CGPoint origin() const { return {x, y}; }
    CGSize size() const { return {width, height}; }
    CGPoint center() const { return {x + width / 2, y + height / 2}; }
    bool contains(CGPoint point) const {
        return point.x >= x && point.x < maxX() && point.y >= y && point.y < maxY();
    }
    /// Whether the two share an area; an empty one shares none.
    bool intersects(const CGRect& other) const {
        return std::max(x, other.x) < std::min(maxX(), other.maxX()) &&
               std::max(y, other.y) < std::min(maxY(), other.maxY());
    }
    /// What the two share, of size 0 where that is nothing.
    CGRect intersection(const CGRect& other) const {
        const double left = std::max(x, other.x);
        const double top = std::max(y, other.y);
        return {left, top, std::max(0.0, std::min(maxX(), other.maxX()) - left),
                std::max(0.0, std::min(maxY(), other.maxY()) - top)};
    }
    /// The smallest that holds both.
    CGRect united(const CGRect& other) const {
        const double left = std::min(x, other.x);
        const double top = std::min(y, other.y);
        return {left, top, std::max(maxX(), other.maxX()) - left,
                std::max(maxY(), other.maxY()) - top};
    }
    CGRect offsetBy(CGPoint distance) const {
        return {x + distance.x, y + distance.y, width, height};
    }
    bool operator==(const CGRect&) const = default;
};

}  // namespace gexlo
