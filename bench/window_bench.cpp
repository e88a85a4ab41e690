// The window: its first frame on the largest store beside a bare one, and the largest grid
// dragged on the software renderer.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string_view>
#include <vector>

#include "app/app_delegate.h"
#include "hosts/desktop/application_bar.h"
#include "hosts/desktop/event_loop.h"
#include "hosts/desktop/phone_window.h"
#include "hosts/drawing/qt_text_measure.h"
#include "large_store.h"
#include "largest_grid.h"
#include "platform/services/application.h"
#include "platform/views/label.h"
#include "platform/views/window.h"

namespace gexlo::bench {

namespace {

constexpr int kRuns = 15;
constexpr int kDrags = 5;  // each of many frames
constexpr double kTimeLimit = 1.3;
constexpr double kMemoryLimit = 1.5;
constexpr double kDragLimit = 4;
constexpr double kFrame = 1000.0 / 60;

struct Items {
    int rectangles = 0;
    int texts = 0;
};

/// Counts the views that a person sees.
void count(const UIView& view, Items& items) {
    if (view.isHidden() || view.alpha() == 0) return;
    const auto* label = dynamic_cast<const UILabel*>(&view);
    if (view.visibleRect().intersects(UIWindow::keyWindow().bounds()))
        ++(label ? items.texts : items.rectangles);
    for (const auto& child : view.subviews())
        count(*child, items);
}

std::unique_ptr<Device> measuringDeviceOn(const std::filesystem::path& root) {
    HostServices services;
    services.textMeasure = std::make_shared<QtTextMeasure>();
    return std::make_unique<Device>(factsOn(root), Clock::real(), services);
}

void launch() {
    UIApplication::sharedApplication().launch(GXAppDelegate::delegate());
}

/// The application as it stands in its window, which is not shown yet.
struct Application {
    explicit Application(const std::filesystem::path& root) : device(measuringDeviceOn(root)) {
        launch();
    }
    std::unique_ptr<Device> device;
    QQmlEngine engine;
    ViewPainter painter{device->facts().resources / "images"};
    PhoneWindow window{engine, painter};
    ApplicationBar bar{engine, window, [](const std::string&) {}};
    EventLoop loop;
};

/// Shows the window, and tells time and memory once its first frame is out.
void tellFirstFrame(QQuickWindow& window, const QElapsedTimer& timer,
                    const std::function<Items()>& items) {
    double elapsed = 0;
    // At once: others wait for the frame too, and do their work only then.
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&] { elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6; }, Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&] {
            const Items shown = items();
            std::printf("%f %f %d %d\n", elapsed, residentMegabytes(), shown.rectangles,
                        shown.texts);
            QCoreApplication::quit();
        },
        Qt::QueuedConnection);
    window.show();
    QGuiApplication::exec();
}

void firstFrame(const std::filesystem::path& root, const QElapsedTimer& timer, Items) {
    Application shown(root);
    tellFirstFrame(shown.window, timer, [] {
        Items items;
        count(UIWindow::keyWindow(), items);
        return items;
    });
}

void addItems(QQmlEngine& engine, QQuickItem& parent, Items items) {
    QQmlComponent rectangle(&engine);
    rectangle.setData("import QtQuick\nRectangle { color: \"steelblue\" }", {});
    QQmlComponent text(&engine);
    text.setData("import QtQuick\nText { text: \"Subject\" }", {});
    for (int i = 0; i < items.rectangles + items.texts; ++i) {
        QQmlComponent& component = i < items.rectangles ? rectangle : text;
        auto* item = qobject_cast<QQuickItem*>(component.create());
        item->setParent(&parent);
        item->setParentItem(&parent);
        item->setPosition({i % 8 * 44.0, i / 8 % 16 * 40.0});
        item->setSize({40, 36});
    }
}

/// The launch without a window, and a window with as many items of Qt's own.
void bareFirstFrame(const std::filesystem::path& root, const QElapsedTimer& timer, Items items) {
    const auto device = measuringDeviceOn(root);
    launch();
    QQmlEngine engine;
    QQuickWindow window;
    window.resize(375, 667);
    addItems(engine, *window.contentItem(), items);
    tellFirstFrame(window, timer, [items] { return items; });
}

double processorMilliseconds() {
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

/// Milliseconds of processor time that each frame of a drag takes: the finger's step, what it
/// changes, and the picture. `step` moves by so many points.
void tellDrag(QQuickWindow& window, const std::function<void(double)>& step) {
    constexpr int kFrames = 300;
    constexpr int kTurn = 30;  // frames in one direction
    constexpr double kDistance = 9;
    std::vector<double> frames;
    double former = 0;
    const auto next = [&] {
        const double now = processorMilliseconds();
        if (former != 0) frames.push_back(now - former);
        if (frames.size() == kFrames) return QCoreApplication::quit();
        former = now;
        step(frames.size() / kTurn % 2 == 0 ? -kDistance : kDistance);
    };
    // The splash has gone by then.
    QTimer::singleShot(1500, &window, [&] {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, next, Qt::QueuedConnection);
        window.update();
    });
    window.show();
    QGuiApplication::exec();
    std::sort(frames.begin(), frames.end());
    std::printf("%f %f\n", frames[kFrames / 2], frames[kFrames * 99 / 100]);
}

void drag(const std::filesystem::path& root, const QElapsedTimer&, Items) {
    Application shown(root);
    QPointF finger(200, 600);
    qint64 time = 0;
    bool isDown = false;
    tellDrag(shown.window, [&](double distance) {
        if (!isDown) shown.window.screen().press(finger, time);
        isDown = true;
        finger.ry() += distance;
        shown.window.screen().move(finger, time += 16);
    });
}

void bareDrag(const std::filesystem::path&, const QElapsedTimer&, Items items) {
    QQmlEngine engine;
    QQuickWindow window;
    QQuickItem content(window.contentItem());
    addItems(engine, content, items);
    window.resize(375, 667);
    tellDrag(window, [&](double distance) { content.setY(content.y() + distance); });
}

/// Processor time while nobody touches anything, in milliseconds a second, of two spans.
void idle(const std::filesystem::path& root, const QElapsedTimer&, Items) {
    constexpr int kSplash = 1500;
    constexpr int kSpan = 2000;
    Application shown(root);
    std::vector<double> times;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        times.push_back(processorMilliseconds());
        timer.setInterval(kSpan);
        if (times.size() == 3) QCoreApplication::quit();
    });
    timer.start(kSplash);
    shown.window.show();
    QGuiApplication::exec();
    std::printf("%f %f\n", (times.at(1) - times.at(0)) * 1000 / kSpan,
                (times.at(2) - times.at(1)) * 1000 / kSpan);
}

// MARK: runs, each in a process of its own

struct Case {
    const char* name;
    void (*run)(const std::filesystem::path& root, const QElapsedTimer& timer, Items items);
};

constexpr Case kCases[] = {
    {"frame", firstFrame}, {"bare-frame", bareFirstFrame}, {"drag", drag}, {"bare-drag", bareDrag},
    {"idle", idle},
};

/// The numbers that one run tells.
std::vector<double> runCase(const QString& name, const std::filesystem::path& root, Items items) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {name, QString::fromStdString(root.string()), QString::number(items.rectangles),
                   QString::number(items.texts)});
    process.waitForFinished(-1);
    std::vector<double> numbers;
    for (const QByteArray& number : process.readAllStandardOutput().simplified().split(' '))
        numbers.push_back(number.toDouble());
    if (process.exitCode() != 0 || numbers.size() < 2) qFatal("%s failed", qPrintable(name));
    return numbers;
}

double median(std::vector<double> numbers) {
    std::nth_element(numbers.begin(), numbers.begin() + numbers.size() / 2, numbers.end());
    return numbers[numbers.size() / 2];
}

void compareFirstFrames() {
    Items items;
    std::vector<double> times, memory, bareTimes, bareMemory;
    for (int i = 0; i < kRuns; ++i) {
        const std::vector<double> own = runCase("frame", largeStoreRoot(), {});
        items = {static_cast<int>(own.at(2)), static_cast<int>(own.at(3))};
        const std::vector<double> bare = runCase("bare-frame", largeStoreRoot(), items);
        times.push_back(own[0]);
        memory.push_back(own[1]);
        bareTimes.push_back(bare[0]);
        bareMemory.push_back(bare[1]);
    }
    std::printf("First frame: %d rectangles, %d texts\n", items.rectangles, items.texts);
    std::printf("  time   %6.1f ms, bare %6.1f ms: %.2f (at most %.2f)\n", median(times),
                median(bareTimes), median(times) / median(bareTimes), kTimeLimit);
    std::printf("  memory %6.1f MB, bare %6.1f MB: %.2f (at most %.2f)\n", median(memory),
                median(bareMemory), median(memory) / median(bareMemory), kMemoryLimit);
}

void compareDrags() {
    const TemporaryRoot root;
    deviceOn(root.path())->perform(writeLargestGrid);
    std::vector<double> times, slowest, bareTimes, bareSlowest;
    for (int i = 0; i < kDrags; ++i) {
        const std::vector<double> own = runCase("drag", root.path(), {});
        const std::vector<double> bare = runCase("bare-drag", root.path(), {100, 100});
        times.push_back(own[0]);
        slowest.push_back(own[1]);
        bareTimes.push_back(bare[0]);
        bareSlowest.push_back(bare[1]);
    }
    std::printf("A frame of dragging the largest grid, of %.1f ms that it may take\n", kFrame);
    std::printf("  median %6.2f ms, bare %6.2f ms: %.2f (at most %.2f)\n", median(times),
                median(bareTimes), median(times) / median(bareTimes), kDragLimit);
    std::printf("  99 %%   %6.2f ms, bare %6.2f ms\n", median(slowest), median(bareSlowest));
}

void measureIdling() {
    const std::vector<double> own = runCase("idle", largeStoreRoot(), {});
    std::printf("Idle: %.2f and %.2f ms of processor time a second\n", own[0], own[1]);
}

}  // namespace

}  // namespace gexlo::bench

int main(int count, char** arguments) {
    QElapsedTimer timer;
    timer.start();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(count, arguments);
    if (count < 5) {
        gexlo::bench::compareFirstFrames();
        gexlo::bench::compareDrags();
        gexlo::bench::measureIdling();
        return 0;
    }
    for (const gexlo::bench::Case& known : gexlo::bench::kCases) {
        if (std::string_view(known.name) != arguments[1]) continue;
        known.run(arguments[2], timer, {std::atoi(arguments[3]), std::atoi(arguments[4])});
        return 0;
    }
    return 2;
}
