#include "Views/Cards/NotePaper.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace orvane {

NotePaper::NotePaper(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &NotePaper::lookChanged, this, &NotePaper::look);
}

void NotePaper::setNote(NoteDocument* note) {
    if (note == note_) return;
    if (note_) note_->disconnect(this);
    note_ = note;
    if (note_) connect(note_, &NoteDocument::laidOut, this, &NotePaper::look);
    emit lookChanged();
}

void NotePaper::look() {
    polish();
    update();
}

void NotePaper::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickPaintedItem::geometryChange(now, before);
    look();
}

void NotePaper::updatePolish() {
    if (!note_ || !note_->layout()) return;
    const double distance = note_->layout()->ensure(offset_, offset_ + height());
    if (distance != 0) emit moved(distance);
}

void NotePaper::paint(QPainter* painter) {
    if (!note_ || !note_->layout()) return;
    const auto& layout = *note_->layout();
    for (auto block = layout.blockAt(offset_); block.isValid(); block = block.next()) {
        const double y = layout.top(block) - offset_;
        if (y >= height()) break;
        paintBlock(*painter, block, {0, y});
    }
}

void NotePaper::paintBlock(QPainter& painter, const QTextBlock& block, QPointF at) const {
    const QTextLayout& lines = *block.layout();
    const QRectF sight(0, 0, width(), height());
    const int from = std::max(selectionStart_ - block.position(), 0);
    const int to = std::min(selectionEnd_ - block.position(), block.length() - 1);
    if (from < to) {
        QTextLayout::FormatRange selected;
        selected.start = from;
        selected.length = to - from;
        selected.format.setBackground(selectionColor_);
        selected.format.setForeground(QColor(Qt::transparent));
        painter.setPen(Qt::transparent);
        // A line's background is as high as its letters: drawn at the line's top and at its bottom, and half
        // a pixel further where pixels are not whole, it leaves no gap.
        const auto line = lines.lineCount() > 0 ? lines.lineAt(0) : QTextLine();
        const double up = -line.y();
        const double down = note_->layout()->lineHeight() - line.y() - line.height() + 0.5;
        for (const double shift : {up, down}) lines.draw(&painter, at + QPointF(0, shift), {selected}, sight);
    }
    painter.setPen(color_);
    lines.draw(&painter, at, {}, sight);
}

} // namespace orvane
