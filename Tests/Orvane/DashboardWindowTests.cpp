#include "Model/NavigationModel.h"
#include "Orvane/ModelFixture.h"
#include "Views/ViewEngine.h"
#include "Windows/DashboardWindow.h"

#include <QFile>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include <memory>

Q_IMPORT_QML_PLUGIN(OrvanePlugin)

using namespace orvane;
using namespace orvane::test;

namespace {

/// Two displays side by side.
constexpr QRect leftScreen{0, 0, 1920, 1080};
constexpr QRect rightScreen{1920, 0, 1280, 800};
const QString frameKey = QStringLiteral("OrvaneDashboard");

/// A Dashboard over a model that is still opening. The real window, on displays in memory.
class Dashboard : public ModelFixture {
public:
    Dashboard() {
        prepareEngine(engine);
        remake();
    }

    /// As after a new start: what was remembered stays.
    void remake() {
        dashboard.reset();
        window = nullptr;
        dashboard = std::make_unique<DashboardWindow>(
            DashboardWindow::Parts{engine, *model, navigation, platform.defaults, platform.systemEvents,
                                   [this](QWindow& made) { window = &made; }});
    }
    void show() { dashboard->show(upwards(leftScreen)); }
    void remember(const char* frame) { platform.defaults.values[frameKey] = frame; }
    QByteArray remembered() const { return platform.defaults.data(frameKey).value_or("nothing"); }
    QObject* view() const { return qobject_cast<QQuickView*>(window)->rootObject(); }

    QQmlEngine engine;
    NavigationModel navigation;
    std::unique_ptr<DashboardWindow> dashboard;
    QWindow* window = nullptr;
};

} // namespace

class DashboardWindowTests : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QCOMPARE(QGuiApplication::screens()[1]->availableGeometry(), rightScreen);
    }

    void itIsMadeOnFirstUseAndKept() {
        Dashboard desk;
        QVERIFY(!desk.dashboard->visible());
        QCOMPARE(desk.window, nullptr);
        desk.show();
        QVERIFY(desk.dashboard->visible());
        auto* made = desk.window;
        desk.dashboard->hide();
        QVERIFY(!desk.dashboard->visible());
        desk.show();
        QCOMPARE(desk.window, made);
        QCOMPARE(made->title(), "Orvane");
    }

    void theFirstFrameIsTheMiddleOfTheRoom() {
        Dashboard desk;
        desk.show();
        QCOMPARE(desk.window->size(), QSize(1320, 730));
        QCOMPARE(desk.window->geometry().center(), leftScreen.center());
    }

    void aSmallerRoomIsFilledUpToItsMarginsButNeverBelowTheLeastSize() {
        QCOMPARE(firstDashboardFrame({0, 0, 1024, 700}), QRect(20, 20, 984, 660));
        QCOMPARE(firstDashboardFrame({100, 50, 1360, 770}), QRect(120, 70, 1320, 730));
        QCOMPARE(firstDashboardFrame({0, 0, 800, 600}).size(), QSize(860, 580));
    }

    void theWindowIsNeverMadeSmallerThanItsLeastSize() {
        Dashboard desk;
        desk.show();
        QCOMPARE(desk.window->minimumSize(), QSize(860, 580));
    }

    void closingPutsItAwayAndItsFrameIsBackAfterANewStart() {
        Dashboard desk;
        desk.show();
        desk.window->setGeometry(130, 140, 900, 600);
        desk.window->close();
        QVERIFY(!desk.dashboard->visible());
        QVERIFY(desk.window);
        QCOMPARE(desk.remembered(), "130 140 900 600");
        desk.remake();
        desk.show();
        QCOMPARE(desk.window->geometry(), QRect(130, 140, 900, 600));
    }

    void theEndOfTheProgramRemembersTheFrameToo() {
        Dashboard desk;
        desk.show();
        desk.window->setGeometry(2000, 100, 1000, 640);
        desk.dashboard.reset();
        QCOMPARE(desk.remembered(), "2000 100 1000 640");
    }

    void hidingWhatIsNotShownRemembersNothing() {
        Dashboard desk;
        desk.dashboard->hide();
        desk.dashboard.reset();
        QCOMPARE(desk.remembered(), "nothing");
    }

    void aRememberedFrameIsPulledOntoItsScreen_data() {
        QTest::addColumn<QByteArray>("frame");
        QTest::addColumn<QRect>("shown");
        QTest::newRow("whole on the right one") << QByteArray("2000 50 900 600") << QRect(2000, 50, 900, 600);
        QTest::newRow("over the right edge") << QByteArray("2500 50 1000 600") << QRect(2200, 50, 1000, 600);
        QTest::newRow("over the lower edge") << QByteArray("100 700 1000 600") << QRect(100, 480, 1000, 600);
        QTest::newRow("on a screen that is gone")
            << QByteArray("5000 50 900 600") << QRect(1020, 50, 900, 600);
    }
    void aRememberedFrameIsPulledOntoItsScreen() {
        QFETCH(QByteArray, frame);
        Dashboard desk;
        desk.remember(frame);
        desk.show();
        QTEST(desk.window->geometry(), "shown");
    }

    void aFrameIsMovedBeforeItIsMadeSmaller() {
        QCOMPARE(pulledInto({-200, 50, 1000, 600}, leftScreen), QRect(0, 50, 1000, 600));
        QCOMPARE(pulledInto({100, -7, 1000, 600}, leftScreen), QRect(100, 0, 1000, 600));
        QCOMPARE(pulledInto({1910, -10, 1300, 820}, rightScreen), rightScreen);
        QCOMPARE(pulledInto({1920, 10, 1280, 790}, rightScreen), QRect(1920, 10, 1280, 790));
    }

    void aFrameThatCannotBeReadCountsAsNone_data() {
        QTest::addColumn<QByteArray>("frame");
        for (const auto* text :
             {"", "1 2 3", "1 2 3 4 5", "a b c d", "10 10 0 0", "10 10 -900 600", "99999999999 0 900 600"})
            QTest::addRow("\"%s\"", text) << QByteArray(text);
    }
    void aFrameThatCannotBeReadCountsAsNone() {
        QFETCH(QByteArray, frame);
        Dashboard desk;
        desk.remember(frame);
        desk.show();
        QCOMPARE(desk.window->size(), QSize(1320, 730));
        QCOMPARE(desk.window->geometry().center(), leftScreen.center());
    }

    void withoutADisplayTheFirstFrameStillHasItsSize() {
        Dashboard desk;
        desk.dashboard->show(std::nullopt);
        QVERIFY(desk.window->size().width() >= 860);
        QVERIFY(desk.window->size().height() >= 580);
    }

    void aMaximisedWindowLeavesTheRestingFrameRemembered() {
        Dashboard desk;
        desk.show();
        desk.window->setGeometry(130, 140, 900, 600);
        desk.dashboard->hide();
        desk.show();
        desk.window->setWindowStates(Qt::WindowMaximized);
        desk.dashboard->hide();
        QCOMPARE(desk.remembered(), "130 140 900 600");
    }

    void theOwnBandMovesMaximisesAndPutsAwayWhereNobodyDecorates() {
        Dashboard desk;
        desk.show();
        desk.window->setGeometry(130, 140, 900, 600);
        QMetaObject::invokeMethod(desk.view(), "moved", Q_ARG(double, 10), Q_ARG(double, -20));
        QCOMPARE(desk.window->geometry(), QRect(140, 120, 900, 600));
        QMetaObject::invokeMethod(desk.view(), "maximizeRequested");
        QCOMPARE(desk.window->size(), leftScreen.size());
        QMetaObject::invokeMethod(desk.view(), "maximizeRequested");
        QCOMPARE(desk.window->geometry(), QRect(140, 120, 900, 600));
        QMetaObject::invokeMethod(desk.view(), "maximizeRequested");
        QMetaObject::invokeMethod(desk.view(), "closeRequested");
        QVERIFY(!desk.dashboard->visible());
        QCOMPARE(desk.remembered(), "140 120 900 600");
    }

    void theViewFollowsTheDesktopsWishForLessMotion() {
        Dashboard desk;
        desk.platform.systemEvents.setReduceMotion(true);
        desk.show();
        QCOMPARE(desk.view()->property("reduceMotion"), QVariant(true));
        desk.platform.systemEvents.setReduceMotion(false);
        QCOMPARE(desk.view()->property("reduceMotion"), QVariant(false));
    }
};

int main(int argc, char* argv[]) {
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("screens.json"));
    QFile file(path);
    if (!file.open(QFile::WriteOnly)) qFatal("The displays cannot be described.");
    file.write(R"({"screens": [
        {"name": "left", "x": 0, "y": 0, "width": 1920, "height": 1080, "logicalDpi": 96, "dpr": 1},
        {"name": "right", "x": 1920, "y": 0, "width": 1280, "height": 800, "logicalDpi": 96, "dpr": 1}]})");
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + path.toUtf8());
    QGuiApplication app(argc, argv);
    DashboardWindowTests tests;
    return QTest::qExec(&tests, argc, argv);
}

#include "DashboardWindowTests.moc"
