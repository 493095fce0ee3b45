#include "Windows/AlertWindow.h"

#include "Windows/PanelMask.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMetaObject>
#include <QQuickItem>
#include <QScreen>

#include <utility>

namespace orvane {
namespace {

constexpr int alertCorner = 18;

} // namespace

AlertWindow::~AlertWindow() = default;

void AlertWindow::ask(const QString& message, const QString& informative, const QStringList& buttons,
                      int cancelIndex, std::function<void(int)> answer) {
    questions_.push_back({message, informative, buttons, cancelIndex, std::move(answer)});
    if (questions_.size() == 1) QMetaObject::invokeMethod(this, &AlertWindow::showNext, Qt::QueuedConnection);
}

void AlertWindow::showNext() {
    if (questions_.empty() || window_) return;
    const auto& question = questions_.front();
    window_ = std::make_unique<QQuickView>(engine_, nullptr);
    window_->setTitle(QStringLiteral("Orvane"));
    window_->setFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    window_->setModality(Qt::ApplicationModal);
    window_->setColor(Qt::transparent);
    window_->setInitialProperties({{QStringLiteral("message"), question.message},
                                   {QStringLiteral("informative"), question.informative},
                                   {QStringLiteral("buttons"), question.buttons},
                                   {QStringLiteral("cancelIndex"), question.cancelIndex},
                                   {QStringLiteral("dark"), dark_ ? dark_() : true}});
    window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Orvane/AlertView.qml")));
    if (!window_->rootObject()) qFatal("The alert's view cannot be loaded.");
    window_->installEventFilter(this);
    connect(window_->rootObject(), SIGNAL(chosen(int)), this, SLOT(choose(int)));
    window_->setResizeMode(QQuickView::SizeRootObjectToView);
    place();
    window_->show();
    window_->requestActivate();
}

void AlertWindow::place() {
    const auto* item = window_->rootObject();
    const QSize size(qRound(item->implicitWidth()), qRound(item->implicitHeight()));
    const auto* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen) screen = QGuiApplication::primaryScreen();
    QRect frame(QPoint(), size);
    frame.moveCenter(screen->availableGeometry().center());
    window_->setGeometry(frame);
    window_->setMask(roundedShape(QRect(QPoint(), size), alertCorner));
}

bool AlertWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != window_.get() || event->type() != QEvent::Close || questions_.empty()) return false;
    event->ignore();
    choose(questions_.front().cancelIndex);
    return true;
}

void AlertWindow::choose(int index) {
    if (questions_.empty() || !window_) return;
    const auto question = std::move(questions_.front());
    questions_.pop_front();
    window_->hide();
    // The choice comes from within the view: it goes once its event is over.
    window_.release()->deleteLater();
    if (!questions_.empty()) QMetaObject::invokeMethod(this, &AlertWindow::showNext, Qt::QueuedConnection);
    question.answer(index);
}

} // namespace orvane
