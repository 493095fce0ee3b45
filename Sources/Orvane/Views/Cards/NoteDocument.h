#pragma once

#include "Views/Cards/NoteLayout.h"

#include <QPointer>
#include <QQmlParserStatus>
#include <QQuickItem>
#include <QString>
#include <QTextDocument>
#include <QtQml/qqmlregistration.h>

namespace orvane {

/// The text of one note in a TextEdit: hands it in and out without the copies that the editor's own text
/// property costs, lays it out in lines of one height, and keeps out what a note cannot hold. The editor
/// paints nothing from then on; a NotePaper does. Main thread.
class NoteDocument : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    /// The TextEdit, which must have the same life as this.
    Q_PROPERTY(QQuickItem* editor MEMBER editor_ REQUIRED)
    /// The height of a line, and how far below its top its letters begin, in logical pixels.
    Q_PROPERTY(int lineHeight MEMBER lineHeight_ REQUIRED)
    Q_PROPERTY(int lead MEMBER lead_ REQUIRED)
    /// The height of all lines; an estimate for those that nobody has looked at yet.
    Q_PROPERTY(double height READ height NOTIFY heightChanged)

public:
    using QObject::QObject;

    void classBegin() override {}
    void componentComplete() override;

    double height() const;
    NoteLayout* layout() const { return layout_; }
    const QTextDocument* document() const { return document_; }

    /// Puts another note's text in place of what there was: nothing of that can be undone any more, and
    /// what an input method has not finished is dropped. The cursor goes to the beginning.
    Q_INVOKABLE void show(const QString& text);
    /// Makes the text of the same note `text` where it differs. The cursor stays where it was, as near as
    /// that text allows. An edit that was `refused` is undone first, so that Undo does not bring it back.
    Q_INVOKABLE void replace(const QString& text, bool refused);
    /// The line that contains `position`, with its ending; a position beyond the end counts as the end.
    Q_INVOKABLE QString line(int position) const;
    /// The position a page above (`direction` -1) or below (1) `position`, for pages of `height` pixels.
    Q_INVOKABLE int pageFrom(int position, int direction, double height) const;

signals:
    /// The user changed the text.
    void edited(const QString& text);
    /// Heights and places may be others than before.
    void laidOut();
    /// The same as soon as the event loop is reached again: lines are also laid out by somebody who asks
    /// for the height of their place.
    void heightChanged();

private:
    void noteChange(int position, int removed, int added);
    void takeText();
    void keepOut();

    QPointer<QQuickItem> editor_;
    QPointer<QTextDocument> document_;
    QPointer<NoteLayout> layout_;
    int lineHeight_ = 1;
    int lead_ = 0;
    /// What the editor holds, as last handed in or out.
    QString text_;
    /// Where text came in since it was last looked at; empty when the end is not behind the beginning.
    int cameFrom_ = 0;
    int cameTo_ = 0;
    /// Whether the present change is this object's own.
    bool own_ = false;
};

} // namespace orvane
