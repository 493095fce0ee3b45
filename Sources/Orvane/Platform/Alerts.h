#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace orvane {

/// Questions that hold the program until they are answered. Main thread.
class Alerts {
public:
    virtual ~Alerts() = default;

    /// Shows a modal question and answers with the index of the chosen button. The first button is the
    /// default, chosen by Return; Escape and closing choose `cancelIndex`. The answer comes later, never
    /// inside the call, and exactly once.
    virtual void ask(const QString& message, const QString& informative, const QStringList& buttons,
                     int cancelIndex, std::function<void(int)> answer) = 0;
};

} // namespace orvane
