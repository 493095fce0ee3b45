#pragma once

#include "Platform/Alerts.h"

#include <QtGlobal>

#include <deque>
#include <functional>
#include <utility>

namespace orvane::test {

/// Questions that the test answers, oldest first.
class FakeAlerts : public Alerts {
public:
    struct Question {
        QString message;
        QString informative;
        QStringList buttons;
        int cancelIndex = 0;
        std::function<void(int)> answer;
    };

    void ask(const QString& message, const QString& informative, const QStringList& buttons, int cancelIndex,
             std::function<void(int)> answer) override {
        open.push_back({message, informative, buttons, cancelIndex, std::move(answer)});
    }

    /// Chooses a button of the oldest question, which must be there.
    void choose(int button) {
        if (open.empty()) qFatal("there is no question to answer");
        const auto question = std::move(open.front());
        open.pop_front();
        question.answer(button);
    }

    /// The questions that are not answered yet.
    std::deque<Question> open;
};

} // namespace orvane::test
