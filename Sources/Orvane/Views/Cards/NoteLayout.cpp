#include "Views/Cards/NoteLayout.h"

#include <QFontMetricsF>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

/// Texts up to this many characters are laid out as a whole, so that nothing about them is estimated.
constexpr int smallText = 20'000;

/// A change of fewer paragraphs is somebody typing, who looks at them.
constexpr int typedBlocks = 32;

bool hasLines(const QTextBlock& block) {
    return block.layout()->lineCount() > 0;
}

} // namespace

NoteLayout::NoteLayout(QTextDocument* document, int lineHeight, int lead)
    : QAbstractTextDocumentLayout(document), lineHeight_(lineHeight), lead_(lead) {}

double NoteLayout::height() const {
    return double(std::max(1, document()->lineCount())) * lineHeight_;
}

double NoteLayout::top(const QTextBlock& block) const {
    return double(block.firstLineNumber()) * lineHeight_;
}

QTextBlock NoteLayout::blockAt(double y) const {
    const double last = document()->lineCount() - 1;
    const auto line = int(std::clamp(std::floor(y / lineHeight_), 0.0, std::max(last, 0.0)));
    const auto found = document()->findBlockByLineNumber(line);
    return found.isValid() ? found : document()->lastBlock();
}

bool NoteLayout::ensure(const QTextBlock& block) {
    if (hasLines(block)) return false;
    const int lines = breakLines(block);
    if (lines == block.lineCount()) return false;
    QTextBlock(block).setLineCount(lines);
    emit changed();
    return true;
}

double NoteLayout::ensure(double top, double bottom) {
    auto block = blockAt(top);
    double moved = 0;
    if (!hasLines(block)) {
        const double before = this->top(block);
        const int lines = block.lineCount();
        const double share = (top - before) / (double(lines) * lineHeight_);
        ensure(block);
        // What was looked at keeps its place within the paragraph, as near as whole lines allow.
        if (before < top) moved = std::round(share * (block.lineCount() - lines)) * lineHeight_;
    }
    for (; block.isValid() && this->top(block) < bottom + moved; block = block.next()) ensure(block);
    return moved;
}

void NoteLayout::draw(QPainter*, const PaintContext&) {
    // The page paints the lines that are in sight.
}

int NoteLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const auto block = blockAt(point.y());
    const QRectF place = blockBoundingRect(block);
    if (accuracy == Qt::ExactHit && !place.contains(point)) return -1;
    const QTextLayout& layout = *block.layout();
    const int line =
        std::clamp(int(std::floor((point.y() - place.top()) / lineHeight_)), 0, layout.lineCount() - 1);
    return block.position() + layout.lineAt(line).xToCursor(point.x());
}

QSizeF NoteLayout::documentSize() const {
    // Each time that this changes a TextEdit counts all lines, which makes a layout for every paragraph: so
    // it is what the editor takes an empty text for.
    return {width_, std::ceil(QFontMetricsF(document()->defaultFont()).height())};
}

QRectF NoteLayout::frameBoundingRect(QTextFrame*) const {
    return {0, 0, width_, height()};
}

QRectF NoteLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid()) return {};
    const_cast<NoteLayout*>(this)->ensure(block);
    return {0, top(block), width_, double(block.lineCount()) * lineHeight_};
}

void NoteLayout::documentChanged(int from, int charsRemoved, int charsAdded) {
    const QFontMetricsF metrics(document()->defaultFont());
    letterWidth_ = std::max(1.0, metrics.averageCharWidth());
    width_ = std::max(1.0, document()->pageSize().width());
    const auto first = document()->findBlock(from);
    auto last = document()->findBlock(from + std::max(charsAdded, charsRemoved));
    if (!last.isValid()) last = document()->lastBlock();
    const bool typed = last.blockNumber() - first.blockNumber() < typedBlocks;
    const bool small = document()->characterCount() <= smallText;
    for (auto block = first; block.isValid(); block = block.next()) {
        block.clearLayout();
        block.setLineCount(typed || small ? breakLines(block) : estimate(block));
        if (block == last) break;
    }
    emit changed();
}

int NoteLayout::estimate(const QTextBlock& block) const {
    return std::max(1, int(std::ceil(block.length() * letterWidth_ / width_)));
}

int NoteLayout::breakLines(const QTextBlock& block) const {
    QTextLayout& layout = *block.layout();
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    // Each paragraph begins on the side on which its own first letter is read.
    const bool rightToLeft = (block.text() + layout.preeditAreaText()).isRightToLeft();
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(rightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    layout.setTextOption(option);
    layout.setFont(document()->defaultFont());
    layout.beginLayout();
    int lines = 0;
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width_);
        line.setPosition({0, double(lines) * lineHeight_ + lead_});
        ++lines;
    }
    layout.endLayout();
    return std::max(1, lines);
}

} // namespace orvane
