#include "Orvane/Seed.h"
#include "TestScale.h"
#include "Views/Cards/NoteLayout.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <random>

using namespace orvane;
using namespace orvane::test;

namespace {

constexpr int lineHeight = 22;

/// Longer than what is laid out as a whole.
QString longText() {
    QString text;
    for (int line = 0; line < 600; ++line)
        text +=
            QStringLiteral("Line %1 ").arg(line) + QStringLiteral("of a text ").repeated(line % 17) + u'\n';
    return text;
}

struct Page {
    Page() {
        QFont font;
        font.setPixelSize(14);
        document.setDefaultFont(font);
        document.setDocumentMargin(0);
        layout = new NoteLayout(&document, lineHeight, 2);
        document.setDocumentLayout(layout);
        document.setTextWidth(228);
    }

    /// How many lines a paragraph has, broken by itself.
    int linesOf(const QTextBlock& block) const {
        QTextLayout lines(block.text(), document.defaultFont());
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        lines.setTextOption(option);
        lines.beginLayout();
        int count = 0;
        for (auto line = lines.createLine(); line.isValid(); line = lines.createLine(), ++count)
            line.setLineWidth(document.textWidth());
        lines.endLayout();
        return std::max(count, 1);
    }

    /// Whether places follow from the numbers of lines, and those that are laid out from the text.
    bool sound() {
        double y = 0;
        for (auto block = document.begin(); block.isValid(); block = block.next()) {
            if (layout->top(block) != y) return false;
            const int laidOut = block.layout()->lineCount();
            if (laidOut > 0 && (laidOut != block.lineCount() || laidOut != linesOf(block))) return false;
            y += block.lineCount() * lineHeight;
        }
        return layout->height() == y;
    }

    QTextDocument document;
    NoteLayout* layout;
};

} // namespace

class NoteLayoutTests : public QObject {
    Q_OBJECT

private slots:
    void anEmptyTextIsOneLineHigh() {
        Page page;
        QCOMPARE(page.layout->height(), 22.0);
        QCOMPARE(page.layout->hitTest({100, 300}, Qt::FuzzyHit), 0);
        QCOMPARE(page.layout->hitTest({100, 300}, Qt::ExactHit), -1);
    }

    void aSmallTextIsLaidOutAtOnce() {
        Page page;
        page.document.setPlainText(
            QStringLiteral("One\n\nA paragraph that is broken into more than one line"));
        QCOMPARE(page.document.lineCount(), 4);
        QCOMPARE(page.layout->height(), 88.0);
        QVERIFY(page.sound());
    }

    void aLongTextIsLaidOutOnlyWhereSomebodyLooks() {
        Page page;
        page.document.setPlainText(longText());
        const auto laidOut = [&] {
            int count = 0;
            for (auto block = page.document.begin(); block.isValid(); block = block.next())
                count += block.layout()->lineCount() > 0 ? 1 : 0;
            return count;
        };
        QCOMPARE(laidOut(), 0);
        page.layout->ensure(5000, 5300);
        QVERIFY(laidOut() > 0);
        QVERIFY(laidOut() < 20);
        QVERIFY(page.sound());
        QVERIFY(page.layout->blockBoundingRect(page.document.lastBlock()).isValid());
        QVERIFY(page.sound());
    }

    void lookingTellsByHowMuchThePlaceMoved() {
        Page page;
        page.document.setPlainText(longText());
        double y = page.layout->height() / 2;
        for (int step = 0; step < 200 && y > 0; ++step, y -= 100) {
            y = std::max(0.0, y);
            const auto block = page.layout->blockAt(y);
            const double before = page.layout->top(block);
            const int lines = block.lineCount();
            const double moved = page.layout->ensure(y, y + 200);
            QCOMPARE(page.layout->top(block), before);
            QVERIFY(std::abs(moved) <= std::abs(block.lineCount() - lines) * lineHeight);
            QVERIFY(page.sound());
        }
    }

    void aPointFindsThePositionThatStandsThere() {
        Page page;
        page.document.setPlainText(longText());
        std::mt19937 random(seed());
        for (int round = 0; round < 200; ++round) {
            const int position = int(random() % unsigned(page.document.characterCount()));
            const auto block = page.document.findBlock(position);
            const auto place = page.layout->blockBoundingRect(block);
            const auto line = block.layout()->lineForTextPosition(position - block.position());
            const double x = line.cursorToX(position - block.position());
            const int found =
                page.layout->hitTest({x, place.top() + line.lineNumber() * lineHeight + 11}, Qt::FuzzyHit);
            const auto there = page.document.findBlock(found);
            QCOMPARE(there.blockNumber(), block.blockNumber());
            QVERIFY(std::abs(line.cursorToX(found - block.position()) - x) < 0.5);
        }
        QCOMPARE(page.layout->hitTest({-50, -50}, Qt::FuzzyHit), 0);
        QCOMPARE(page.layout->hitTest({500, 1e9}, Qt::FuzzyHit), page.document.characterCount() - 1);
    }

    void placesStaySoundWhateverIsEdited() {
        std::mt19937 random(seed());
        const auto below = [&](int bound) { return int(random() % unsigned(bound)); };
        Page page;
        page.document.setPlainText(longText());
        QTextCursor cursor(&page.document);
        for (int step = 0; step < scaled(400); ++step) {
            const int length = page.document.characterCount();
            cursor.setPosition(below(length));
            switch (below(8)) {
            case 0:
                cursor.insertText(QStringLiteral("word "));
                break;
            case 1:
                cursor.insertText(QStringLiteral("a\n\nb"));
                break;
            case 2:
                cursor.insertText(QStringLiteral("pasted line of some length\n").repeated(below(60)));
                break;
            case 3:
                cursor.setPosition(std::min(length - 1, cursor.position() + below(3000)),
                                   QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
                break;
            case 4:
                page.document.undo();
                break;
            case 5:
                page.document.redo();
                break;
            case 6:
                page.document.setTextWidth(198 + below(150));
                break;
            default:
                page.layout->ensure(below(20'000), below(20'000));
            }
            page.layout->blockBoundingRect(cursor.block());
            QVERIFY2(page.sound(), qPrintable(QStringLiteral("after step %1").arg(step)));
        }
    }

    void changesAreTold() {
        Page page;
        page.document.setPlainText(longText());
        QSignalSpy changed(page.layout, &NoteLayout::changed);
        QTextCursor(&page.document).insertText(QStringLiteral("a"));
        QCOMPARE(changed.count(), 1);
        page.document.setTextWidth(300);
        QCOMPARE(changed.count(), 2);
    }
};

QTEST_MAIN(NoteLayoutTests)
#include "NoteLayoutTests.moc"
