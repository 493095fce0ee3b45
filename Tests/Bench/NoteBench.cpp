// What a large note costs: opening it in the card until it is painted, and each key until it is stored in
// the planner and painted.

#include "Orvane/ModelFixture.h"
#include "Views/ViewEngine.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickView>
#include <QtQml/QQmlExtensionPlugin>

#include <algorithm>
#include <cstdio>
#include <ctime>

Q_IMPORT_QML_PLUGIN(OrvanePlugin)

using namespace orvane;
using namespace orvane::test;

namespace {

constexpr int size = 5'000'000;
constexpr int keys = 40;

const char* const card = R"(
import QtQuick
import Orvane as Orvane
Item {
    id: root
    required property Orvane.AppModel planner
    Orvane.NotesCard {
        width: 260
        height: 440
        model: root.planner
        theme: Orvane.Theme {
            tones: Orvane.Palette.panel
            layer: root
        }
    }
}
)";

double milliseconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

struct Spent {
    double wall;
    double processor;
};

Spent spentOn(const std::function<void()>& action) {
    const double wall = milliseconds(CLOCK_MONOTONIC);
    const double processor = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    action();
    return {milliseconds(CLOCK_MONOTONIC) - wall, milliseconds(CLOCK_PROCESS_CPUTIME_ID) - processor};
}

/// A text of 5,000,000 letters in lines of `length` with their ending.
QString text(int length) {
    const QStringList words{"lorem ", "ipsum ", "dolor ", "sit ", "amet ", "consectetur "};
    QString all;
    all.reserve(size + 20);
    for (int line = 0; all.size() < size; ++line) {
        const auto begin = all.size();
        for (int word = line; all.size() - begin < length - 1; ++word) all += words[word * 7 % words.size()];
        all.truncate(begin + length - 1);
        all += u'\n';
    }
    all.truncate(size - 2 * keys * 4);
    return all;
}

/// The card over a planner with that note, on yesterday's empty one.
class Desk {
public:
    explicit Desk(const QString& note) {
        house_.load();
        house_.model->updateNote(note);
        house_.model->selectNoteDayBy(-1);
        house_.platform.settle();
        prepareEngine(*view_.engine());
        QQmlComponent component(view_.engine());
        component.setData(card, QUrl());
        auto* root =
            component.createWithInitialProperties({{"planner", QVariant::fromValue(house_.model.get())}});
        if (!root) qFatal("%s", qPrintable(component.errorString()));
        view_.setContent(QUrl(), &component, root);
        view_.resize(260, 440);
        view_.show();
        view_.requestActivate();
        text_ = view_.rootObject()->findChild<QQuickItem*>("noteText");
        if (!text_) qFatal("the card has no text");
        text_->forceActiveFocus();
        paint();
    }

    Spent open() {
        return spentOn([this] {
            house_.model->selectNoteDayBy(1);
            paint();
        });
    }

    void goTo(int position) {
        text_->setProperty("cursorPosition", position);
        paint();
    }

    Spent type() {
        return spentOn([this] {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
            QCoreApplication::sendEvent(&view_, &press);
            paint();
        });
    }

    qsizetype stored() const { return house_.model->noteText().size(); }

private:
    void paint() {
        QCoreApplication::processEvents();
        view_.grabWindow();
    }

    ModelFixture house_;
    QQuickView view_;
    QQuickItem* text_ = nullptr;
};

void measureKeys(Desk& desk, const char* where, int position, int count) {
    desk.goTo(position);
    const auto before = desk.stored();
    std::vector<double> wall, processor;
    for (int i = 0; i < count; ++i) {
        const auto spent = desk.type();
        wall.push_back(spent.wall);
        processor.push_back(spent.processor);
    }
    if (desk.stored() != before + count) qFatal("a key was lost");
    std::sort(wall.begin(), wall.end());
    std::sort(processor.begin(), processor.end());
    const auto at = [&](double share) { return std::size_t(share * (count - 1) + 0.5); };
    std::printf("%-28s %9.2f %9.2f %9.2f\n", where, wall[at(0.5)], processor[at(0.5)], wall[at(0.95)]);
    std::fflush(stdout);
}

void measure(const char* name, int length, int count) {
    Desk desk(text(length));
    std::printf("\n%-28s %9s %9s %9s\n", name, "median", "processor", "p95");
    const auto opening = desk.open();
    std::printf("%-28s %9.2f %9.2f\n", "open", opening.wall, opening.processor);
    std::fflush(stdout);
    measureKeys(desk, "key at the beginning", 0, count);
    measureKeys(desk, "key in the middle", size / 2, count);
    measureKeys(desk, "key at the end", int(desk.stored()), count);
}

} // namespace

int main(int argc, char* argv[]) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication app(argc, argv);
    measure("5 MB, lines of 1,000, ms", 1000, keys);
    measure("5 MB, lines of 40, ms", 40, keys);
    measure("5 MB, one line, ms", size * 2, 3);
}
