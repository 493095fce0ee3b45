#pragma once

#include "Platform/FilePanels.h"

#include <QtGlobal>

#include <deque>
#include <utility>

namespace orvane::test {

/// File dialogs that the test answers, oldest first.
class FakeFilePanels : public FilePanels {
public:
    struct Panel {
        bool saves = false;
        /// Empty for a panel that opens.
        QString suggestedName;
        Answer answer;
    };

    void save(const QString& suggestedName, Answer answer) override {
        shown.push_back({true, suggestedName, std::move(answer)});
    }
    void open(Answer answer) override { shown.push_back({false, {}, std::move(answer)}); }

    /// Chooses a file, which need not exist, in the oldest panel; one must be there.
    void choose(const std::filesystem::path& path) { answerWith(path); }
    /// Closes the oldest panel without a choice; one must be there.
    void cancel() { answerWith(std::nullopt); }

    /// The panels that are not answered yet.
    std::deque<Panel> shown;

private:
    void answerWith(const std::optional<std::filesystem::path>& path) {
        if (shown.empty()) qFatal("there is no file panel to answer");
        const auto panel = std::move(shown.front());
        shown.pop_front();
        panel.answer(path);
    }
};

} // namespace orvane::test
