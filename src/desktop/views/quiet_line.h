// A line at the foot of a window that says what has happened and asks for nothing: no box, no
// sound, and no focus. It can offer one thing to do about it.

#pragma once

#include <QString>
#include <QWidget>
#include <functional>

class QLabel;

namespace orvik {

class LinkButton;

class QuietLine : public QWidget {
    Q_OBJECT
 public:
    // name: the object's; what it holds is named after it. Nothing is said at first.
    QuietLine(const QString& name, QWidget* parent);

    // Says something until clear(). If there is something to do about it, link is what the link
    // behind it says, and follow what it runs.
    using Follow = std::function<void()>;
    void tell(const QString& text, const QString& link = {}, Follow follow = {});
    void clear();
    [[nodiscard]] QString text() const;

    // How high it must be in a window of this width; 0 while it says nothing.
    [[nodiscard]] int heightIn(int width) const;

 private:
    void say(const QString& whole, const QString& link);

    QLabel* label_;
    LinkButton* link_;
    Follow follow_;
};

}  // namespace orvik
