#pragma once

#include "Platform/FilePanels.h"

#include <QObject>
#include <QPalette>

#include <functional>
#include <memory>
#include <vector>

class QFileDialog;

namespace orvane {

/// File dialogs: the desktop's own where the toolkit knows one, otherwise the toolkit's. They belong to the
/// Dashboard and hold it while it is on show, otherwise they stand free. Needs a QApplication. Main thread.
class DialogFilePanels : public QObject, public FilePanels {
    Q_OBJECT

public:
    DialogFilePanels();
    ~DialogFilePanels() override;

    /// The colours of the toolkit's own dialog; asked for at each one.
    void setPalette(std::function<QPalette()> palette) { palette_ = std::move(palette); }

    void save(const QString& suggestedName, Answer answer) override;
    void open(Answer answer) override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    std::unique_ptr<QFileDialog> makePanel() const;
    void presentFilePanel(std::unique_ptr<QFileDialog> panel, Answer completion);
    void finish(QFileDialog* panel, const Answer& completion);

    std::function<QPalette()> palette_;
    /// Where the last file was chosen.
    QString folder_;
    std::vector<std::unique_ptr<QFileDialog>> shown_;
};

} // namespace orvane
