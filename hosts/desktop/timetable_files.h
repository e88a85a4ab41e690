// What the menu above the phone's screen does: a timetable comes from a file, and goes into one.
#pragma once

#include <QObject>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <string>

namespace gexlo {

/// The name of a timetable as that of its file, for every file system: without what one of them
/// takes for something else, and short enough.
std::string fileNameFor(const std::string& timetable);

class TimetableFiles final : public QObject {
    Q_OBJECT

public:
    using Receive = std::function<void(const std::string& url)>;

    /// A file that is to be opened goes to `receive`.
    explicit TimetableFiles(Receive receive) : receive_(std::move(receive)) {}

    Q_INVOKABLE QString text(const QString& key) const;
    Q_INVOKABLE bool canSave() const;
    /// Where a person keeps documents.
    Q_INVOKABLE QUrl documents() const;
    /// In that directory, by the name of the current timetable.
    Q_INVOKABLE QUrl proposedFile(const QUrl& directory) const;

    Q_INVOKABLE void open(const QUrl& file);
    /// Writes the current timetable, as it would be sent. Asks before it replaces a file, and
    /// tells what went wrong, each by an alert.
    Q_INVOKABLE void save(const QUrl& file);

private:
    Receive receive_;
};

}  // namespace gexlo
