#pragma once

#include "Platform/Alerts.h"

#include <QObject>
#include <QQuickView>

#include <deque>
#include <memory>

class QQmlEngine;

namespace orvane {

/// Shows questions in a window of its own, in front of the program's other windows, which take no
/// input meanwhile. Questions asked while one is open wait for their turn. Main thread.
class AlertWindow : public QObject, public Alerts {
    Q_OBJECT

public:
    AlertWindow() = default;
    ~AlertWindow() override;

    /// Where the view comes from; to be set before the first question. It must outlive this.
    void setEngine(QQmlEngine& engine) { engine_ = &engine; }
    /// Whether the view is drawn dark; asked at each question.
    void setDark(std::function<bool()> dark) { dark_ = std::move(dark); }

    void ask(const QString& message, const QString& informative, const QStringList& buttons, int cancelIndex,
             std::function<void(int)> answer) override;

private:
    struct Question {
        QString message;
        QString informative;
        QStringList buttons;
        int cancelIndex = 0;
        std::function<void(int)> answer;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void showNext();
    void place();

private slots:
    void choose(int index);

private:
    QQmlEngine* engine_ = nullptr;
    std::function<bool()> dark_;
    std::deque<Question> questions_;
    std::unique_ptr<QQuickView> window_;
};

} // namespace orvane
