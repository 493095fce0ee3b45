#pragma once

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

namespace orvane {

/// What the panel's window and its view tell each other. Rectangles are in the window's coordinates,
/// logical pixels, y downwards. Main thread.
class PanelState : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    Q_PROPERTY(bool expanded READ expanded NOTIFY expandedChanged)
    Q_PROPERTY(double notchWidth READ notchWidth NOTIFY geometryChanged)
    Q_PROPERTY(double topInset READ topInset NOTIFY geometryChanged)
    /// Where the strip or the open panel stands once it rests.
    Q_PROPERTY(QRectF target READ target NOTIFY geometryChanged)
    /// Whether the view moves to `target` or jumps.
    Q_PROPERTY(bool animated READ animated NOTIFY geometryChanged)
    /// Whether every animation is off.
    Q_PROPERTY(bool reduceMotion READ reduceMotion NOTIFY reduceMotionChanged)
    /// Where the body is drawn at present: written by the view in each frame, read by the window for
    /// its mask.
    Q_PROPERTY(QRectF body READ body WRITE setBody NOTIFY bodyChanged)

public:
    using QObject::QObject;

    bool expanded() const { return expanded_; }
    double notchWidth() const { return notchWidth_; }
    double topInset() const { return topInset_; }
    QRectF target() const { return target_; }
    bool animated() const { return animated_; }
    bool reduceMotion() const { return reduceMotion_; }
    QRectF body() const { return body_; }

    void setExpanded(bool expanded) {
        if (expanded == expanded_) return;
        expanded_ = expanded;
        emit expandedChanged();
    }
    void setNotch(double topInset, double notchWidth) {
        if (topInset == topInset_ && notchWidth == notchWidth_) return;
        topInset_ = topInset;
        notchWidth_ = notchWidth;
        emit geometryChanged();
    }
    void setTarget(const QRectF& target, bool animated) {
        if (target == target_ && animated == animated_) return;
        target_ = target;
        animated_ = animated;
        emit geometryChanged();
    }
    void setReduceMotion(bool reduceMotion) {
        if (reduceMotion == reduceMotion_) return;
        reduceMotion_ = reduceMotion;
        emit reduceMotionChanged();
    }
    void setBody(const QRectF& body) {
        if (body == body_) return;
        body_ = body;
        emit bodyChanged();
    }

signals:
    void expandedChanged();
    void geometryChanged();
    void reduceMotionChanged();
    void bodyChanged();

private:
    bool expanded_ = false;
    double notchWidth_ = 0;
    double topInset_ = 0;
    QRectF target_;
    bool animated_ = false;
    bool reduceMotion_ = false;
    QRectF body_;
};

} // namespace orvane
