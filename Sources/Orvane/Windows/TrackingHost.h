#pragma once

#include <QObject>

#include <functional>

namespace orvane {

/// Passes on what the panel's root view reports: the pointer over its body, a press on the strip.
/// Main thread.
class TrackingHost : public QObject {
    Q_OBJECT

public:
    /// `root` is the view's root item with the signals `entered()`, `exited()` and `open()`, and owns
    /// this.
    explicit TrackingHost(QObject* root);

    std::function<void()> entered;
    std::function<void()> exited;
    std::function<void()> open;

private slots:
    void onEntered();
    void onExited();
    void onOpen();
};

} // namespace orvane
