#include "Qml/TestDesk.h"
#include "Views/ViewEngine.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(OrvanePlugin)

namespace {

/// Gives each test file an engine that can load the views, and a desktop.
class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        orvane::prepareEngine(*engine);
        engine->rootContext()->setContextProperty(QStringLiteral("desk"), &desk_);
    }

private:
    orvane::test::TestDesk desk_;
};

} // namespace

QUICK_TEST_MAIN_WITH_SETUP(orvane, Setup)

#include "main.moc"
