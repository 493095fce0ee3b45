#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace orvane {

/// Turns SIGTERM and SIGINT into events of the main thread, through signalfd(2).
class SignalWatch : public QObject {
    Q_OBJECT

public:
    /// Holds the two signals back from ending the program. To be called before any thread starts:
    /// threads inherit it.
    static void holdBack();

    explicit SignalWatch(QObject* parent = nullptr);
    ~SignalWatch() override;

signals:
    void quitRequested();

private:
    int descriptor_;
    QSocketNotifier notifier_;
};

} // namespace orvane
