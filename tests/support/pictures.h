// Pictures compared.
#pragma once

#include <QImage>

namespace gexlo::test {

/// The pixels in which a channel differs by more than that.
inline int differing(const QImage& left, const QImage& right, int visible) {
    int count = 0;
    for (int at = 0; at < left.width() * left.height(); ++at) {
        const QPoint place(at % left.width(), at / left.width());
        const QRgb a = left.pixel(place);
        const QRgb b = right.pixel(place);
        count += std::abs(qRed(a) - qRed(b)) > visible ||
                 std::abs(qGreen(a) - qGreen(b)) > visible ||
                 std::abs(qBlue(a) - qBlue(b)) > visible;
    }
    return count;
}

}  // namespace gexlo::test
