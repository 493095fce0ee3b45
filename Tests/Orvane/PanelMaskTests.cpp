#include "Windows/PanelMask.h"

#include <QTest>

using namespace orvane;

class PanelMaskTests : public QObject {
    Q_OBJECT

private slots:
    void theBodyIsKeptWholeBetweenItsCorners() {
        const auto shape = panelShape(body, 14);
        QVERIFY(shape.contains(QRect(100, 0, 200, 18)));
        QVERIFY(shape.contains(QRect(114, 0, 172, 32)));
    }

    void theLowerCornersAreRoundAndTheUpperOnesSquare() {
        const auto shape = panelShape(body, 14);
        QVERIFY(!shape.contains(QPoint(100, 31)));
        QVERIFY(!shape.contains(QPoint(299, 31)));
        QVERIFY(shape.contains(QPoint(100, 0)));
        QVERIFY(shape.contains(QPoint(299, 0)));
        // On the circle's diagonal, a pixel inside and one outside.
        QVERIFY(shape.contains(QPoint(105, 26)));
        QVERIFY(!shape.contains(QPoint(102, 29)));
    }

    void theShouldersReachOutAtTheTopAndEndAfterTheirHeight() {
        const auto shape = panelShape(body, 14);
        // The topmost row's middle already lies half a pixel down the curve.
        QCOMPARE(shape.boundingRect(), QRect(91, 0, 218, 32));
        QVERIFY(shape.contains(QPoint(98, 0)));
        QVERIFY(!shape.contains(QPoint(89, 8)));
        QVERIFY(!shape.contains(QPoint(99, 12)));
    }

    void bothSidesMirrorEachOther() {
        const auto shape = panelShape(body, 14);
        for (int y = 0; y < 32; ++y)
            for (int x = 80; x < 200; ++x)
                QCOMPARE(shape.contains(QPoint(x, y)), shape.contains(QPoint(399 - x, y)));
    }

    void aBodyLowerThanItsCornersStillHasAShapeInsideIt() {
        const auto shape = panelShape(QRect(100, 0, 200, 8), 24);
        QVERIFY(!shape.isEmpty());
        QCOMPARE(shape.boundingRect().height(), 8);
    }

    void aRoundedRectangleLosesOnlyItsFourCorners() {
        const QRect rect(10, 20, 100, 60);
        const auto shape = roundedShape(rect, 18);
        QCOMPARE(shape.boundingRect(), rect);
        for (const auto& corner : {rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()})
            QVERIFY(!shape.contains(corner));
        QVERIFY(shape.contains(QPoint(10, 50)));
        QVERIFY(shape.contains(QPoint(60, 20)));
    }

private:
    const QRect body{100, 0, 200, 32};
};

QTEST_GUILESS_MAIN(PanelMaskTests)
#include "PanelMaskTests.moc"
