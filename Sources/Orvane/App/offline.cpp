// The application's windows on a desktop in memory: for designers, for pictures, and to look at a state
// that is hard to reach. Nothing outside a scratch folder is touched.

#include "App/offlineActs.h"
#include "App/offlineScenes.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QtQml/QQmlExtensionPlugin>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(OrvanePlugin)

using namespace orvane::offline;

int main(int argc, char* argv[]) {
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationVersion(ORVANE_VERSION);
    QCommandLineParser parser;
    parser.addOptions({{"state", "What to show; --list names the states.", "name", "panel"},
                       {"output", "Write a picture of it there and end.", "file"},
                       {"size", "The window's size, for the Dashboard and low panels.", "WxH"},
                       {"list", "Name the states."}});
    parser.addHelpOption();
    parser.process(app);
    if (parser.isSet("list")) {
        for (const auto& [name, scene] : scenes()) std::puts(qPrintable(name));
        return 0;
    }
    const QString name = parser.value("state");
    const auto all = scenes();
    const auto found = all.find(name);
    if (found == all.end()) {
        std::fprintf(stderr, "There is no state \"%s\".\n", qPrintable(name));
        return 2;
    }
    const Scene& scene = found->second;
    Stage stage;
    if (parser.isSet("size")) {
        const auto parts = parser.value("size").split('x');
        stage.size = {parts.value(0).toInt(), parts.value(1).toInt()};
    }
    prepareModel(stage, scene.planner());
    scene.before(stage);
    if (!name.endsWith("-loading")) {
        stage.model->load();
        stage.desk.settle();
    }
    scene.model(stage);
    makeWindow(stage, scene.window, scene.expanded);
    stage.view.show();
    stage.view.requestActivate();
    wait(100);
    scene.act(stage);
    if (!parser.isSet("output")) return QGuiApplication::exec();
    const bool written = stage.view.grabWindow().save(parser.value("output"));
    if (!written) std::fprintf(stderr, "The picture could not be written.\n");
    return written ? 0 : 1;
}
