#include "desktop/help/help_key.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QVariant>
#include <QWidget>
#include <utility>

namespace orvik {
namespace {

constexpr const char* kTopic = "helpTopic";

// Empty for a window that has none, or whose form shows it.
QByteArray TopicOf(const QWidget& window) {
    if (const auto* const dialog = qobject_cast<const QFileDialog*>(&window)) {
        return dialog->acceptMode() == QFileDialog::AcceptSave ? "open.html#save" : "open.html";
    }
    if (qobject_cast<const QMessageBox*>(&window) != nullptr) {
        return "troubleshooting.html";
    }
    return window.property(kTopic).toByteArray();
}

bool IsF1Released(const QEvent& event) {
    if (event.type() != QEvent::KeyRelease) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && !key.isAutoRepeat();
}

}  // namespace

void SetHelpTopic(QWidget& window, const char* topic) {
    window.setProperty(kTopic, QByteArray(topic));
}

HelpKey::HelpKey(Show show) : show_(std::move(show)) {
    qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* receiver, QEvent* event) {
    const auto* const widget = qobject_cast<QWidget*>(receiver);
    if (widget == nullptr || !IsF1Released(*event)) {
        return false;
    }
    const QByteArray topic = TopicOf(*widget->window());
    if (topic.isEmpty()) {
        return false;
    }
    show_(topic.toStdString());
    return true;
}

}  // namespace orvik
