#include "Platform/Linux/DialogFilePanels.h"

#include "ScratchFolder.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <memory>
#include <optional>

using namespace orvane;

namespace {

/// The panels and what they answered.
struct Desk {
    Desk() {
        panels.setPalette([] { return QPalette(Qt::darkGreen); });
    }
    FilePanels::Answer answer() {
        return [this](const auto& path) {
            ++answers;
            chosen = path;
        };
    }
    /// The one dialog on show; nothing without one.
    static QFileDialog* dialog() {
        QFileDialog* found = nullptr;
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<QFileDialog*>(widget); dialog && dialog->isVisible()) {
                if (found) qFatal("there are two dialogs");
                found = dialog;
            }
        return found;
    }
    /// Puts a path into the dialog's field and presses Return.
    static void choose(const std::filesystem::path& path) {
        auto* field = dialog()->findChild<QLineEdit*>();
        field->setText(QString::fromStdString(path.string()));
        QTest::keyClick(field, Qt::Key_Return);
    }

    ScratchFolder folder;
    DialogFilePanels panels;
    int answers = 0;
    std::optional<std::filesystem::path> chosen;
};

QWindow* shownWindow(std::unique_ptr<QWindow>& window, Qt::WindowFlags flags = {}) {
    window = std::make_unique<QWindow>();
    window->setFlags(Qt::Window | flags);
    window->show();
    return window.get();
}

} // namespace

class DialogFilePanelsTests : public QObject {
    Q_OBJECT

private slots:
    void savingOffersTheNameAndGivesTheChosenPath() {
        Desk desk;
        desk.panels.save(QStringLiteral("Orvane-2026-03-07.json"), desk.answer());
        QVERIFY(Desk::dialog());
        QCOMPARE(desk.answers, 0);
        QCOMPARE(Desk::dialog()->findChild<QLineEdit*>()->text(), QStringLiteral("Orvane-2026-03-07.json"));
        Desk::choose(desk.folder / "Mine.json");
        QCOMPARE(desk.answers, 1);
        QCOMPARE(desk.chosen, std::optional(desk.folder / "Mine.json"));
        QVERIFY(!Desk::dialog());
    }

    void aNameWithoutAnEndingGetsOne() {
        Desk desk;
        desk.panels.save(QStringLiteral("Orvane.json"), desk.answer());
        Desk::choose(desk.folder / "Mine");
        QCOMPARE(desk.chosen, std::optional(desk.folder / "Mine.json"));
    }

    void aNameOutsideAsciiComesBackAsItsBytes() {
        Desk desk;
        desk.panels.save(QStringLiteral("Orvane.json"), desk.answer());
        Desk::choose(desk.folder / "Gärten 庭.json");
        QCOMPARE(desk.chosen, std::optional(desk.folder / "Gärten 庭.json"));
    }

    void openingGivesAnExistingFile() {
        Desk desk;
        writeFile(desk.folder / "Backup.json", "{}");
        desk.panels.open(desk.answer());
        Desk::choose(desk.folder / "Backup.json");
        QCOMPARE(desk.chosen, std::optional(desk.folder / "Backup.json"));
    }

    void aFolderIsEnteredAndNotChosen() {
        Desk desk;
        std::filesystem::create_directory(desk.folder / "inner");
        desk.panels.open(desk.answer());
        Desk::choose(desk.folder / "inner");
        QCOMPARE(desk.answers, 0);
        QCOMPARE(Desk::dialog()->directory().absolutePath(),
                 QString::fromStdString((desk.folder / "inner").string()));
        Desk::dialog()->reject();
        QCOMPARE(desk.answers, 1);
    }

    void puttingItAwayAnswersWithNothing() {
        for (const bool closes : {true, false}) {
            Desk desk;
            desk.panels.open(desk.answer());
            if (closes)
                Desk::dialog()->close();
            else
                QTest::keyClick(Desk::dialog(), Qt::Key_Escape);
            QCOMPARE(desk.answers, 1);
            QCOMPARE(desk.chosen, std::nullopt);
            QVERIFY(!Desk::dialog());
        }
    }

    void theNextOneBeginsWhereTheLastFileWasChosen() {
        Desk desk;
        desk.panels.save(QStringLiteral("Orvane.json"), desk.answer());
        Desk::choose(desk.folder / "Mine.json");
        desk.panels.open(desk.answer());
        QCOMPARE(Desk::dialog()->directory().absolutePath(),
                 QString::fromStdString(desk.folder.path().string()));
        Desk::dialog()->reject();
    }

    void itBelongsToTheOrdinaryWindowOnShow() {
        Desk desk;
        std::unique_ptr<QWindow> strip, dashboard;
        shownWindow(strip, Qt::FramelessWindowHint);
        shownWindow(dashboard);
        desk.panels.open(desk.answer());
        const auto* window = Desk::dialog()->windowHandle();
        QCOMPARE(window->transientParent(), dashboard.get());
        QCOMPARE(window->modality(), Qt::WindowModal);
        Desk::dialog()->reject();
    }

    void itStandsFreeWhereNoOrdinaryWindowIsOnShow() {
        Desk desk;
        std::unique_ptr<QWindow> strip, dashboard;
        shownWindow(strip, Qt::FramelessWindowHint);
        shownWindow(dashboard)->hide();
        desk.panels.open(desk.answer());
        QVERIFY(!Desk::dialog()->windowHandle()->transientParent());
        Desk::dialog()->reject();
    }

    void theWindowItBelongsToMayGoFirst() {
        Desk desk;
        std::unique_ptr<QWindow> dashboard;
        shownWindow(dashboard);
        desk.panels.open(desk.answer());
        dashboard.reset();
        Desk::dialog()->reject();
        QCOMPARE(desk.answers, 1);
    }

    void nobodyIsAnsweredOnceThePanelsAreGone() {
        int answers = 0;
        {
            DialogFilePanels panels;
            panels.open([&](const auto&) { ++answers; });
            QVERIFY(Desk::dialog());
        }
        QVERIFY(!Desk::dialog());
        QCOMPARE(answers, 0);
    }

    void anAnswerMayAskAgain() {
        Desk desk;
        desk.panels.open([&](const auto&) { desk.panels.open(desk.answer()); });
        Desk::dialog()->reject();
        QVERIFY(Desk::dialog());
        Desk::dialog()->reject();
        QCOMPARE(desk.answers, 1);
    }

    void theDialogAndItsQuestionHaveTheGivenColours() {
        Desk desk;
        const auto expected = QPalette(Qt::darkGreen).color(QPalette::Button);
        writeFile(desk.folder / "Mine.json", "old");
        desk.panels.save(QStringLiteral("Mine.json"), desk.answer());
        QCOMPARE(Desk::dialog()->palette().color(QPalette::Button), expected);
        QColor asked;
        // The question holds the key that brought it up until it is answered.
        QMetaObject::invokeMethod(
            this,
            [&asked] {
                auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!question) return;
                asked = question->palette().color(QPalette::Button);
                question->button(QMessageBox::Yes)->click();
            },
            Qt::QueuedConnection);
        Desk::choose(desk.folder / "Mine.json");
        QCOMPARE(asked, expected);
        QCOMPARE(desk.chosen, std::optional(desk.folder / "Mine.json"));
    }
};

QTEST_MAIN(DialogFilePanelsTests)
#include "DialogFilePanelsTests.moc"
