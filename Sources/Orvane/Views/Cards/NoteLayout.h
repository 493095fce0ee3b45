#pragma once

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>

namespace orvane {

/// Lays a plain text out in lines of one height, and only where somebody looks: the other paragraphs have
/// an estimated number of lines until they are asked for, so that a text of megabytes opens at once.
/// Lengths are logical pixels. Main thread.
class NoteLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    /// For `document`, which takes it over by `setDocumentLayout`. Each line is `lineHeight` high, its
    /// letters `lead` below its top.
    NoteLayout(QTextDocument* document, int lineHeight, int lead);

    int lineHeight() const { return lineHeight_; }
    /// The height of all lines, as far as it is known.
    double height() const;
    /// Where a paragraph begins. Lays nothing out.
    double top(const QTextBlock& block) const;
    /// The paragraph with the line at `y`; the first or last one beyond the ends. Lays nothing out.
    QTextBlock blockAt(double y) const;
    /// Gives a paragraph its lines. True when their number is another than it was taken for.
    bool ensure(const QTextBlock& block);
    /// Lays out what stands between `top` and `bottom`. Returns by how much this moved what stands at `top`.
    double ensure(double top, double bottom);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    /// The width, and the height of an empty text: who wants to know the text's asks for `height`.
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    /// Lays the paragraph out: who asks for it goes on to look at its lines.
    QRectF blockBoundingRect(const QTextBlock& block) const override;

signals:
    /// Paragraphs were laid out or forgotten: heights and places may be others.
    void changed();

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    int estimate(const QTextBlock& block) const;
    /// Breaks the paragraph into lines; their number.
    int breakLines(const QTextBlock& block) const;

    int lineHeight_;
    int lead_;
    double width_ = 0;
    double letterWidth_ = 1;
};

} // namespace orvane
