#include "Platform/Linux/DialogFilePanels.h"

#include <QChildEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

/// The first window on show that is an ordinary one: the panel and the alerts draw their own frames.
QWindow* mainWindow() {
    const auto windows = QGuiApplication::topLevelWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWindow* window) {
        return window->type() == Qt::Window && !(window->flags() & Qt::FramelessWindowHint) &&
               window->isVisible() && !(window->windowStates() & Qt::WindowMinimized);
    });
    return found == windows.end() ? nullptr : *found;
}

QString firstFolder() {
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

} // namespace

DialogFilePanels::DialogFilePanels() : folder_(firstFolder()) {}

DialogFilePanels::~DialogFilePanels() {
    // Their ends are nobody's business any more.
    for (const auto& panel : shown_) panel->disconnect(this);
}

std::unique_ptr<QFileDialog> DialogFilePanels::makePanel() const {
    auto panel = std::make_unique<QFileDialog>(nullptr, QString(), folder_);
    panel->setNameFilter(tr("JSON files (*.json)"));
    panel->setDefaultSuffix(QStringLiteral("json"));
    panel->setSupportedSchemes({QStringLiteral("file")});
    if (palette_) panel->setPalette(palette_());
    return panel;
}

bool DialogFilePanels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ChildPolished) return false;
    // The dialog's own questions are windows, which inherit no colours.
    auto* const child = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
    if (child && child->isWindow()) child->setPalette(static_cast<QWidget*>(watched)->palette());
    return false;
}

void DialogFilePanels::save(const QString& suggestedName, Answer answer) {
    auto panel = makePanel();
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    panel->selectFile(suggestedName);
    presentFilePanel(std::move(panel), std::move(answer));
}

void DialogFilePanels::open(Answer answer) {
    auto panel = makePanel();
    panel->setAcceptMode(QFileDialog::AcceptOpen);
    panel->setFileMode(QFileDialog::ExistingFile);
    presentFilePanel(std::move(panel), std::move(answer));
}

void DialogFilePanels::presentFilePanel(std::unique_ptr<QFileDialog> panel, Answer completion) {
    auto* const dialog = panel.get();
    shown_.push_back(std::move(panel));
    dialog->installEventFilter(this);
    connect(dialog, &QDialog::finished, this,
            [this, dialog, completion = std::move(completion)] { finish(dialog, completion); });
    if (auto* const parent = mainWindow()) {
        dialog->winId(); // so that there is a window to give a parent to
        dialog->windowHandle()->setTransientParent(parent);
        dialog->setWindowModality(Qt::WindowModal);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void DialogFilePanels::finish(QFileDialog* panel, const Answer& completion) {
    const auto files = panel->result() == QDialog::Accepted ? panel->selectedFiles() : QStringList();
    if (!files.isEmpty()) folder_ = QFileInfo(files.front()).absolutePath();
    // It is in the middle of closing, and its connection holds the completion: both end afterwards.
    const auto answer = completion;
    const auto place = std::find_if(shown_.begin(), shown_.end(),
                                    [panel](const auto& shown) { return shown.get() == panel; });
    place->release()->deleteLater();
    shown_.erase(place);
    if (files.isEmpty())
        answer(std::nullopt);
    else
        answer(std::filesystem::path(QFile::encodeName(files.front()).toStdString()));
}

} // namespace orvane
