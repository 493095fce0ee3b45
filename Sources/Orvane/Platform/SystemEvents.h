#pragma once

#include <QObject>

namespace orvane {

/// What the desktop tells its programs. Main thread.
class SystemEvents : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether the user asked for fewer animations.
    virtual bool reduceMotion() const = 0;
    /// Whether the desktop's colour scheme is dark.
    virtual bool prefersDark() const = 0;

signals:
    void reduceMotionChanged();
    void prefersDarkChanged();
    /// The user went to another workspace.
    void activeSpaceChanged();
    /// SIGTERM or SIGINT arrived.
    void quitRequested();
};

} // namespace orvane
