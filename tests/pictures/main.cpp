// Takes pictures of everything the window can show, at several scales, and compares two such sets.
//
//   pictures show FOLDER [SCALE...]  writes the pictures, replacing those that are there
//   pictures compare BEFORE AFTER    lists the pictures that differ; ends with 1 when there are any

#include <QApplication>
#include <QComboBox>
#include <QLocale>
#include <QLockFile>
#include <QProcess>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <vector>

#include "compare.h"
#include "forms.h"
#include "scene.h"
#include "window/screens/small_painting.h"
#include "window/toolkit/theme.h"

using namespace marvolin::test;

namespace {

/// The platform without a screen says at each popup what it cannot do.
void LeaveOutThePlatform(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", qPrintable(text));
}

/// One scale: the toolkit takes it once, as a program starts.
int ShowAtScale(int argc, char** argv, const char* folder, const char* scale) {
    qInstallMessageHandler(LeaveOutThePlatform);
    QApplication application(argc, argv);
    QApplication::setApplicationVersion("1.2.3");
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    QLocale::setDefault(QLocale::c());
    const marvolin::SmallPainting smallPainting;
    marvolin::theme::Apply(application);
    Album album(folder, std::string("@") + scale);
    PictureMainWindow(album);
    PictureBrowser(album);
    PictureDialogues(album);
    PictureScripts(album);
    std::printf("%zu pictures at %s\n", album.Count(), scale);
    return 0;
}

/// Runs this program once for each scale, with a home folder and a language that are the same on every machine.
int Show(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const char* folder = argv[2];
    std::vector<const char*> scales(argv + 3, argv + argc);
    if (scales.empty()) scales = {"1", "1.5", "2"};
    QLockFile turn(QString(kPictureFolder) + ".lock");
    turn.lock();
    WritePictureFolder();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("HOME", QString(kPictureFolder) + "/home");
    environment.insert("XDG_RUNTIME_DIR", QString(kPictureFolder) + "/run");
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("TZ", "UTC");
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) environment.remove(name);
    int result = 0;
    for (const char* scale : scales) {
        environment.insert("QT_SCALE_FACTOR", scale);
        QProcess program;
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(QCoreApplication::applicationFilePath(), {"at", scale, folder});
        program.waitForFinished(-1);
        if (program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0) result = 2;
    }
    RemovePictureFolder();
    return result;
}

int Compare(const char* before, const char* after) {
    const std::vector<Difference> differences = ComparePictures(before, after);
    for (const Difference& one : differences) std::printf("%s: %s\n", one.Name.c_str(), one.What.c_str());
    std::printf("%zu pictures differ\n", differences.size());
    return differences.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc >= 3 && std::strcmp(argv[1], "show") == 0) return Show(argc, argv);
        if (argc == 4 && std::strcmp(argv[1], "at") == 0) return ShowAtScale(argc, argv, argv[3], argv[2]);
        if (argc == 4 && std::strcmp(argv[1], "compare") == 0) return Compare(argv[2], argv[3]);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "pictures: %s\n", e.what());
        return 2;
    }
    std::fprintf(stderr, "pictures show FOLDER [SCALE...] | pictures compare BEFORE AFTER\n");
    return 2;
}
