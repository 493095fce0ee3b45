#include "App/offlineActs.h"
#include "App/offlineScenes.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QTextCharFormat>

namespace orvane::offline {
namespace {

const char* const ordinaryNote = "Open the talk with the empty calendar, not the agenda.\n\n"
                                 "Ask Jonas about the projector cable\n\n"
                                 "Paper samples: 120 g feels right, the cream one. Marta keeps two rolls "
                                 "until Friday.\n\n"
                                 "The small place with the green door, near the station. Lunch?";

void write(Stage& stage, const QString& text) {
    stage.model->updateNote(text);
    stage.desk.clock.advance(1);
    stage.desk.settle();
}

void ordinary(Stage& stage) {
    write(stage, QString::fromUtf8(ordinaryNote));
}

void longNote(Stage& stage) {
    QString text;
    for (int i = 1; i <= 60; ++i)
        text += QStringLiteral("%1. A line of a long note, which is broken where the card ends.\n").arg(i);
    write(stage, text);
}

void rightToLeft(Stage& stage) {
    write(stage,
          QString::fromUtf8("להתקשר לספרייה ולשאול על הספרים שהוזמנו לפני שבוע.\n\n"
                            "مراجعة العرض مع Marta قبل الساعة 9\n\n"
                            "Then a line from left to right, with שלום in it.\n"
                            "👩‍👩‍👧‍👦 Lunch with everyone 🇪🇺 日本語のメモ\n\n"
                            "https://example.org/a/very/long/link/that/has/no/place/to/break/at/all"));
}

void width(Stage& stage, int width) {
    auto preferences = stage.model->settings()->preferences();
    preferences.cardWidth = width;
    stage.model->settings()->setPreferences(preferences);
}

void appearance(Stage& stage, const char* name) {
    auto preferences = stage.model->settings()->preferences();
    preferences.appearance = QLatin1String(name);
    stage.model->settings()->setPreferences(preferences);
}

/// The cursor goes to the end of the note's third line.
void takeKeyboard(Stage& stage) {
    auto* text = stage.find("noteText");
    text->forceActiveFocus(Qt::TabFocusReason);
    text->setProperty("cursorPosition", 91);
    wait(50);
}

/// An input method shows what it has not finished.
void compose(Stage& stage) {
    takeKeyboard(stage);
    QTextCharFormat underlined;
    underlined.setFontUnderline(true);
    const QString text = QStringLiteral(" and the adapter");
    QInputMethodEvent event(text, {{QInputMethodEvent::TextFormat, 0, int(text.size()), QVariant(underlined)},
                                   {QInputMethodEvent::Cursor, int(text.size()), 1, {}}});
    QCoreApplication::sendEvent(stage.find("noteText"), &event);
    wait(50);
}

std::map<QString, Scene> states() {
    return {{"notes-empty", {Window::panel, ordinaryDay}},
            {"notes-text", {Window::panel, ordinaryDay, idle, ordinary}},
            {"notes-writing", {Window::panel, ordinaryDay, idle, ordinary, takeKeyboard}},
            {"notes-composing", {Window::panel, ordinaryDay, idle, ordinary, compose}},
            {"notes-selection",
             {Window::panel, ordinaryDay, idle, ordinary,
              [](Stage& s) {
                  takeKeyboard(s);
                  for (int i = 0; i < 5; ++i) key(s, Qt::Key_Down, Qt::ShiftModifier);
              }}},
            {"notes-long",
             {Window::panel, ordinaryDay, idle, longNote,
              [](Stage& s) {
                  takeKeyboard(s);
                  for (int i = 0; i < 3; ++i) key(s, Qt::Key_PageDown);
                  wait(100);
              }}},
            {"notes-right-to-left", {Window::panel, ordinaryDay, idle, rightToLeft}},
            {"notes-narrow",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  ordinary(s);
                  width(s, 230);
              }}},
            {"notes-wide",
             {Window::panel, ordinaryDay, idle,
              [](Stage& s) {
                  ordinary(s);
                  width(s, 380);
              }}},
            {"notes-low",
             {Window::panel, ordinaryDay,
              [](Stage& s) {
                  s.size = {650, 400};
              },
              ordinary}}};
}

std::map<QString, Scene> acts() {
    return {{"notes-yesterday",
             {Window::panel, ordinaryDay, idle, ordinary,
              [](Stage& s) {
                  const auto* previous = s.find("previousNote");
                  click(s, previous->mapToScene({14, 14}));
              }}},
            {"notes-task",
             {Window::panel, ordinaryDay, idle, ordinary,
              [](Stage& s) {
                  takeKeyboard(s);
                  key(s, Qt::Key_Return, Qt::ControlModifier);
                  wait(300);
              }}},
            {"notes-keyboard",
             {Window::panel, ordinaryDay, idle, ordinary,
              [](Stage& s) {
                  takeKeyboard(s);
                  key(s, Qt::Key_Backtab, Qt::ShiftModifier);
                  wait(800);
              }}},
            {"notes-light",
             {Window::dashboard, ordinaryDay, idle,
              [](Stage& s) {
                  ordinary(s);
                  appearance(s, "light");
              },
              takeKeyboard}},
            {"notes-dark", {Window::dashboard, ordinaryDay, idle, [](Stage& s) {
                                ordinary(s);
                                appearance(s, "dark");
                            }}}};
}

} // namespace

std::map<QString, Scene> noteScenes() {
    auto all = states();
    all.merge(acts());
    return all;
}

} // namespace orvane::offline
