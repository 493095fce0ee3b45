#pragma once

#include "Views/Cards/NoteDocument.h"

#include <QColor>
#include <QQuickPaintedItem>

namespace orvane {

/// The part of a note that is in sight. A TextEdit draws a long paragraph as a whole, which takes half a
/// minute where it has megabytes; this draws the lines that it has room for. Lengths are logical pixels.
/// Main thread.
class NotePaper : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(orvane::NoteDocument* note READ note WRITE setNote NOTIFY lookChanged REQUIRED)
    /// What of the note stands at the top edge.
    Q_PROPERTY(double offset MEMBER offset_ NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY lookChanged)
    Q_PROPERTY(QColor selectionColor MEMBER selectionColor_ NOTIFY lookChanged)
    /// The selection, from and to these positions.
    Q_PROPERTY(int selectionStart MEMBER selectionStart_ NOTIFY lookChanged)
    Q_PROPERTY(int selectionEnd MEMBER selectionEnd_ NOTIFY lookChanged)

public:
    explicit NotePaper(QQuickItem* parent = nullptr);

    NoteDocument* note() const { return note_; }
    void setNote(NoteDocument* note);
    void paint(QPainter* painter) override;

signals:
    void lookChanged();
    /// What stands at `offset` moved down by `distance` while it was laid out: look there instead.
    void moved(double distance);

protected:
    void updatePolish() override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    void look();
    void paintBlock(QPainter& painter, const QTextBlock& block, QPointF at) const;

    QPointer<NoteDocument> note_;
    double offset_ = 0;
    QColor color_;
    QColor selectionColor_;
    int selectionStart_ = 0;
    int selectionEnd_ = 0;
};

} // namespace orvane
