#include "window/screens/window_file.h"

#include <QFile>
#include <QSaveFile>
#include <QTextStream>
#include <vector>

#include "window/screens/program_size.h"

namespace marvolin {

namespace {

constexpr const char* kFirstLine = "marvolin windows 1";
constexpr const char* kMaximised = "maximised";
constexpr qint64 kMostBytes = 4096;    // a larger file is something else
constexpr int kFarthest = 100000;      // pixels
constexpr int kLeastWindow = 50;       // pixels
constexpr int kLargestWindow = 20000;  // pixels

/// The numbers behind the first word; empty when one is none.
std::vector<int> Numbers(const QStringList& words) {
    std::vector<int> numbers;
    for (const QString& word : words.mid(1)) {
        bool ok = false;
        numbers.push_back(word.toInt(&ok));
        if (!ok) return {};
    }
    return numbers;
}

void ReadLine(const QString& line, WindowRecord& record) {
    QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) return;
    const bool maximised = words.size() == 6 && words.last() == kMaximised;
    if (maximised) words.removeLast();
    const std::vector<int> numbers = Numbers(words);
    if (words[0] == "headphones" && numbers.size() == 1) record.Headphones = numbers[0] == 1;
    if (words[0] == "size" && numbers.size() == 1 && IsProgramSize(numbers[0])) record.Size = numbers[0];
    if (words[0] == "elements" && numbers.size() == 1) record.Elements = numbers[0] == 1;
    if (numbers.size() != 4) return;
    const auto near = [](int value) { return value > -kFarthest && value < kFarthest; };
    const auto possible = [](int side) { return side >= kLeastWindow && side <= kLargestWindow; };
    if (!near(numbers[0]) || !near(numbers[1]) || !possible(numbers[2]) || !possible(numbers[3])) return;
    record.Places[words[0]] = {{numbers[0], numbers[1]}, {numbers[2], numbers[3]}, maximised};
}

}  // namespace

WindowRecord ReadWindowFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMostBytes) return {};
    const QStringList lines = QString::fromUtf8(file.read(kMostBytes)).split('\n');
    WindowRecord record;
    if (lines.first().trimmed() != kFirstLine) return record;
    for (const QString& line : lines.mid(1)) ReadLine(line, record);
    return record;
}

bool WriteWindowFile(const QString& path, const WindowRecord& record) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    QTextStream text(&file);
    text << kFirstLine << '\n';
    if (record.Size != 0) text << "size " << record.Size << '\n';
    if (record.Elements) text << "elements 1\n";
    if (record.Headphones) text << "headphones 1\n";
    for (const auto& [name, place] : record.Places) {
        text << name << ' ' << place.Corner.x() << ' ' << place.Corner.y() << ' ' << place.Size.width() << ' '
             << place.Size.height();
        if (place.Maximised) text << ' ' << kMaximised;
        text << '\n';
    }
    text.flush();
    return file.commit();
}

}  // namespace marvolin
