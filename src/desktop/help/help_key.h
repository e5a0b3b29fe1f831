// F1 in windows whose forms know no help, and in boxes and dialogs.

#pragma once

#include <QObject>
#include <functional>
#include <string_view>

class QWidget;

namespace orvik {

// SetHelpTopic: the page that F1 opens in a window.
void SetHelpTopic(QWidget& window, const char* topic);

// While it lives, F1 shows the page of such a window, of a box or of a file dialog.
class HelpKey : public QObject {
    Q_OBJECT
 public:
    using Show = std::function<void(std::string_view topic)>;
    explicit HelpKey(Show show);

 protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    Show show_;
};

}  // namespace orvik
