#include "Views/Cards/NoteDocument.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QQuickTextDocument>
#include <QScopedValueRollback>
#include <QTextCursor>
#include <QTextLayout>

#include <algorithm>

namespace orvane {
namespace {

/// What the document makes of a text's line endings and of what it takes for one.
QString normalized(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const char16_t ending : {u'\r', u'\u2029', u'\ufdd0', u'\ufdd1'}) text.replace(QChar(ending), u'\n');
    return text;
}

/// The document's text with what separates its paragraphs as a line feed, and nothing else changed.
QString textOf(const QTextDocument& document) {
    auto text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

/// Whether the character at `index` is half of a pair whose other half is missing.
bool unpaired(const QTextDocument& document, int index) {
    const QChar here = document.characterAt(index);
    if (here.isHighSurrogate()) return !document.characterAt(index + 1).isLowSurrogate();
    return here.isLowSurrogate() && (index == 0 || !document.characterAt(index - 1).isHighSurrogate());
}

} // namespace

void NoteDocument::componentComplete() {
    document_ = qvariant_cast<QQuickTextDocument*>(editor_->property("textDocument"))->textDocument();
    layout_ = new NoteLayout(document_, lineHeight_, lead_);
    document_->setDocumentLayout(layout_);
    editor_->setFlag(QQuickItem::ItemHasContents, false);
    connect(layout_, &NoteLayout::changed, this, &NoteDocument::laidOut);
    connect(layout_, &NoteLayout::changed, this, &NoteDocument::heightChanged, Qt::QueuedConnection);
    connect(document_, &QTextDocument::contentsChange, this, &NoteDocument::noteChange);
    connect(document_, &QTextDocument::contentsChanged, this, &NoteDocument::takeText);
    emit layout_->changed();
}

double NoteDocument::height() const {
    return layout_ ? layout_->height() : lineHeight_;
}

void NoteDocument::show(const QString& text) {
    const QScopedValueRollback own(own_, true);
    if (editor_->property("inputMethodComposing").toBool()) QGuiApplication::inputMethod()->reset();
    document_->setPlainText(text);
    text_ = normalized(text);
    editor_->setProperty("cursorPosition", 0);
}

void NoteDocument::replace(const QString& text, bool refused) {
    const QScopedValueRollback own(own_, true);
    if (refused && document_->isUndoAvailable()) {
        document_->undo();
        text_ = textOf(*document_);
    }
    const QString wanted = normalized(text);
    if (wanted == text_) return;
    const auto most = std::min(text_.size(), wanted.size());
    auto front = std::mismatch(text_.begin(), text_.begin() + most, wanted.begin()).first - text_.begin();
    if (front > 0 && text_[front - 1].isHighSurrogate()) --front;
    qsizetype back = 0;
    while (back < most - front && text_[text_.size() - 1 - back] == wanted[wanted.size() - 1 - back]) ++back;
    if (back > 0 && text_[text_.size() - back].isLowSurrogate()) --back;
    QTextCursor cursor(document_);
    cursor.beginEditBlock();
    cursor.setPosition(int(front));
    cursor.setPosition(int(text_.size() - back), QTextCursor::KeepAnchor);
    cursor.insertText(wanted.mid(front, wanted.size() - back - front));
    cursor.endEditBlock();
    text_ = wanted;
}

QString NoteDocument::line(int position) const {
    const auto block = document_->findBlock(std::min(position, document_->characterCount() - 1));
    return block.next().isValid() ? block.text() + u'\n' : block.text();
}

int NoteDocument::pageFrom(int position, int direction, double height) const {
    const auto block = document_->findBlock(position);
    const double top = layout_->blockBoundingRect(block).top();
    const auto line = block.layout()->lineForTextPosition(position - block.position());
    const double page = std::max(1.0, std::floor(height / lineHeight_) - 1) * lineHeight_;
    const double y = top + line.lineNumber() * lineHeight_ + direction * page;
    if (y < 0) return 0;
    if (y >= layout_->height()) return document_->characterCount() - 1;
    const double x = line.cursorToX(position - block.position());
    return layout_->hitTest({x, y + lineHeight_ / 2.0}, Qt::FuzzyHit);
}

void NoteDocument::noteChange(int position, int, int added) {
    if (own_) return;
    // The counts of a whole text include the separator at its end.
    const int end = std::min(position + added, document_->characterCount() - 1);
    cameFrom_ = cameFrom_ < cameTo_ ? std::min(cameFrom_, position) : position;
    cameTo_ = std::max(cameTo_, end);
}

void NoteDocument::takeText() {
    if (own_) return;
    keepOut();
    auto text = textOf(*document_);
    // An input method's unfinished text and a new width are reported as changes, too.
    if (text == text_) return;
    text_ = std::move(text);
    emit edited(text_);
}

void NoteDocument::keepOut() {
    const int from = std::exchange(cameFrom_, 0);
    const int to = std::min(std::exchange(cameTo_, 0), document_->characterCount() - 1);
    const QScopedValueRollback own(own_, true);
    QTextCursor cursor(document_);
    // From the end, so that positions still to be looked at stay. One more on either side: what came in
    // may have parted a pair.
    for (int index = std::min(to, document_->characterCount() - 2); index >= std::max(0, from - 1); --index) {
        const QChar here = document_->characterAt(index);
        const bool separator = here == QChar::LineSeparator;
        if (!here.isNull() && !separator && !unpaired(*document_, index)) continue;
        cursor.joinPreviousEditBlock();
        cursor.setPosition(index);
        cursor.deleteChar();
        if (separator) cursor.insertBlock();
        cursor.endEditBlock();
    }
}

} // namespace orvane
