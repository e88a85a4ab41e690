// Pictures of pixels: coded and read again, cut, made of views, and painted.
#include <gtest/gtest.h>

#include <QBuffer>
#include <cmath>
#include <fstream>

#include "hosts/drawing/qt_image_coder.h"
#include "hosts/drawing/qt_values.h"
#include "platform/views/image_view.h"
#include "platform/views/scroll_view.h"
#include "support/phone.h"
#include "support/pictures.h"

namespace gexlo::test {

namespace {

constexpr UIColor kRed{1, 0, 0, 1}, kGreen{0, 1, 0, 1}, kBlue{0, 0, 1, 1};

/// Of one colour in each quarter, the last one clear; 20 pixels wide and 10 high.
class Images : public ::testing::Test {
protected:
    Images() {
        phone.services.imageCoder = std::make_shared<QtImageCoder>(directory.path());
        phone.restart();
        UIView sheet({0, 0, 20, 10});
        sheet.add<UIView>(CGRect{0, 0, 10, 5}).setBackgroundColor(kRed);
        sheet.add<UIView>(CGRect{10, 0, 10, 5}).setBackgroundColor(kGreen);
        sheet.add<UIView>(CGRect{0, 5, 10, 5}).setBackgroundColor(kBlue);
        quarters = UIImage::imageOfView_size_scale(sheet, {20, 10}, 1);
    }
    static QImage pixels(const UIImage& image) { return qtImage(image.bitmap()).copy(); }
    static UIImage read(const NSData& data) { return UIImage::imageWithData_scale(data, 1); }
    /// An image in a view of that frame, one pixel a point.
    static QImage shown(const UIImage& image, CGRect frame) {
        UIView sheet({0, 0, 40, 40});
        sheet.setBackgroundColor(UIColor::whiteColor());
        sheet.add<UIImageView>(frame).setImage(image);
        return pixels(UIImage::imageOfView_size_scale(sheet, {40, 40}, 1));
    }

    Phone phone;
    TemporaryDirectory directory;
    UIImage quarters;
};

TEST_F(Images, pixels_come_back_from_a_png_and_nearly_from_a_jpeg) {
    const NSData png = UIImagePNGRepresentation(quarters);
    EXPECT_EQ(pixels(read(png)), pixels(quarters));
    EXPECT_EQ(pixels(quarters).pixelColor(15, 8).alpha(), 0);
    const NSData jpeg = UIImageJPEGRepresentation(quarters, 1);
    const QImage decoded = pixels(read(jpeg));
    EXPECT_EQ(decoded.size(), QSize(20, 10));
    const std::pair<QPoint, QColor> middles[] = {
        {{5, 2}, Qt::red}, {{15, 2}, Qt::green}, {{5, 8}, Qt::blue}, {{15, 8}, Qt::white}};
    for (const auto& [middle, color] : middles) {
        QImage expected(1, 1, QImage::Format_RGB32);
        expected.fill(color);
        EXPECT_EQ(differing(decoded.copy(QRect(middle, QSize(1, 1))), expected, 6), 0);
    }
    EXPECT_LT(UIImageJPEGRepresentation(quarters, 0.1).size(), jpeg.size());

    const auto file = directory.path() / "photo.png";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    const UIImage photo = UIImage::imageWithContentsOfFile_scale(file, 2);
    EXPECT_EQ(photo.name(), "photo.png");
    EXPECT_EQ(photo.size(), (CGSize{10, 5}));
    EXPECT_TRUE(UIImage::imageWithContentsOfFile_scale(directory.path() / "none", 1).isNone());
}

TEST_F(Images, a_photo_stands_as_it_was_taken) {
    // As a camera marks one that was held upright.
    const auto mark = QByteArray::fromHex(
        "ffe100224578696600004d4d002a00000008000101120003000000010006000000000000");
    NSData file = UIImageJPEGRepresentation(quarters, 1);
    file.insert(file.begin() + 2, mark.begin(), mark.end());
    const UIImage photo = read(file);
    EXPECT_EQ(photo.size(), (CGSize{10, 20}));
    EXPECT_GT(pixels(photo).pixelColor(2, 2).blue(), 200) << "the lower left corner";
}

TEST_F(Images, a_crop_is_the_part_that_lies_in_the_image) {
    const QImage whole = pixels(quarters);
    const struct {
        CGRect rect;
        QRect part;
    } cases[] = {{{5, 2, 12, 6}, {5, 2, 12, 6}},
                 {{4.5, 1.2, 2, 2}, {4, 1, 3, 3}},
                 {{-5, -5, 10, 100}, {0, 0, 5, 10}},
                 {{20, 0, 5, 5}, {}},
                 {{2, 2, 0, 5}, {}},
                 {{0, 0, std::nan(""), 5}, {}}};
    for (const auto& at : cases) {
        const UIImage crop = CGImageCreateWithImageInRect(quarters, at.rect);
        EXPECT_EQ(crop.isNone(), at.part.isEmpty());
        if (crop.isNone()) continue;
        EXPECT_EQ(pixels(crop), whole.copy(at.part));
        EXPECT_EQ(pixels(read(UIImagePNGRepresentation(crop))), whole.copy(at.part));
    }
    const UIImage fine = UIImage::imageWithBitmap_scale(quarters.bitmap(), 2);
    EXPECT_EQ(CGImageCreateWithImageInRect(fine, {4, 2, 10, 4}).size(), (CGSize{5, 2}));
    const UIImage crop = CGImageCreateWithImageInRect(quarters, {5, 2, 12, 6});
    quarters = {};
    EXPECT_EQ(pixels(crop), whole.copy(5, 2, 12, 6)) << "the pixels stay with who shows them";
    EXPECT_TRUE(CGImageCreateWithImageInRect(quarters, {5, 2, 12, 6}).isNone());
}

TEST_F(Images, a_scroll_view_stands_in_its_image_where_its_content_does) {
    UIScrollView scroll({50, 60, 20, 10});
    scroll.setContentSize({100, 100});
    scroll.setContentOffset({30, 40});
    scroll.add<UIView>(CGRect{0, 0, 100, 100}).setBackgroundColor(kRed);
    const QImage image = pixels(UIImage::imageOfView_size_scale(scroll, {100, 100}, 2));
    EXPECT_EQ(image.size(), QSize(200, 200));
    for (const QPoint inside : {QPoint(60, 80), QPoint(99, 99)})
        EXPECT_EQ(image.pixelColor(inside), Qt::red);
    for (const QPoint outside : {QPoint(59, 80), QPoint(100, 99), QPoint(60, 100)})
        EXPECT_EQ(image.pixelColor(outside).alpha(), 0);
    EXPECT_TRUE(UIImage::imageOfView_size_scale(scroll, {1e5, 1e5}, 1).isNone());
}

TEST_F(Images, pixels_fill_a_view_stretch_between_caps_repeat_and_take_a_tint) {
    QImage twice = shown(quarters, {0, 0, 40, 20});
    EXPECT_EQ(twice.pixelColor(17, 7), Qt::red);
    EXPECT_EQ(twice.pixelColor(22, 7), Qt::green);
    EXPECT_EQ(twice.pixelColor(30, 15), Qt::white);
    EXPECT_EQ(shown(quarters, {0, 0, 10, 5}).pixelColor(2, 3), Qt::blue);
    const QImage capped =
        shown(quarters.stretchableImageWithLeftCapWidth_topCapHeight(9, 0), {0, 0, 40, 10});
    EXPECT_EQ(capped.pixelColor(8, 2), Qt::red);
    EXPECT_EQ(capped.pixelColor(32, 2), Qt::green);
    const UIImage striped = CGImageCreateWithImageInRect(quarters, {0, 2, 10, 8});
    const QImage high =
        shown(striped.stretchableImageWithLeftCapWidth_topCapHeight(1, 3), {0, 0, 40, 40});
    EXPECT_EQ(high.pixelColor(5, 1), Qt::red);
    EXPECT_EQ(high.pixelColor(5, 6), Qt::blue) << "the cap above stays as high";

    const QImage tiled = shown(quarters.tiled(), {5, 5, 30, 30});
    EXPECT_EQ(tiled.copy(5, 5, 20, 10), tiled.copy(5, 15, 20, 10));
    EXPECT_EQ(tiled.copy(5, 5, 10, 10), tiled.copy(25, 25, 10, 10));
    EXPECT_EQ(tiled.pixelColor(5, 5), Qt::red);
    EXPECT_EQ(tiled.pixelColor(4, 5), Qt::white);
    EXPECT_EQ(tiled.pixelColor(35, 5), Qt::white);

    UIImageView view({0, 0, 20, 10});
    view.setImage(quarters);
    view.setTintColor(kGreen);
    const QImage tinted = pixels(UIImage::imageOfView_size_scale(view, {20, 10}, 1));
    EXPECT_EQ(tinted.pixelColor(2, 2), Qt::green);
    EXPECT_EQ(tinted.pixelColor(15, 8).alpha(), 0);
    EXPECT_EQ(pixels(quarters).pixelColor(2, 2), Qt::red) << "the image itself stays";
}

TEST_F(Images, broken_and_huge_files_give_none_and_say_nothing) {
    const NSData png = UIImagePNGRepresentation(quarters);
    const NSData jpeg = UIImageJPEGRepresentation(quarters, 1);
    const auto bytes = [](std::string_view text) { return NSData(text.begin(), text.end()); };
    QBuffer huge;
    QImage(1 << 16, 1 << 10, QImage::Format_Mono).save(&huge, "PNG");
    std::vector<NSData> files{
        {},
        bytes("no image"),
        {huge.data().begin(), huge.data().end()},
        bytes("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")};
    for (std::size_t length = 0; length < png.size() - 12; ++length)
        files.emplace_back(png.begin(), png.begin() + static_cast<std::ptrdiff_t>(length));
    for (const std::size_t length : {2U, 3U, 20U, 200U})
        files.emplace_back(jpeg.begin(), jpeg.begin() + static_cast<std::ptrdiff_t>(length));
    testing::internal::CaptureStderr();
    for (const NSData& file : files)
        EXPECT_TRUE(read(file).isNone()) << file.size();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    phone.services.imageCoder = nullptr;
    phone.restart();
    EXPECT_TRUE(read(png).isNone());
    EXPECT_TRUE(UIImagePNGRepresentation(quarters).empty());
}

}  // namespace

}  // namespace gexlo::test
