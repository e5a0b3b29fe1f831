#include "desktop/windows/tab_order.h"

#include <QLayout>
#include <QTabWidget>
#include <vector>

namespace orvik {
namespace {

// What an item holds, in the order in which it is read.
std::vector<QLayoutItem*> Inside(QLayoutItem& item) {
    std::vector<QLayoutItem*> inside;
    if (const QLayout* const layout = item.layout()) {
        for (int i = 0; i < layout->count(); ++i) {
            inside.push_back(layout->itemAt(i));
        }
    } else if (const auto* const tabs = qobject_cast<QTabWidget*>(item.widget())) {
        for (int i = 0; i < tabs->count(); ++i) {
            inside.push_back(tabs->widget(i)->layout());
        }
    } else if (item.widget() != nullptr && item.widget()->layout() != nullptr) {
        inside.push_back(item.widget()->layout());
    }
    return inside;
}

}  // namespace

void OrderTabs(QWidget& window) {
    QWidget* before = nullptr;
    std::vector<QLayoutItem*> to_come{window.layout()};
    while (!to_come.empty()) {
        QLayoutItem& item = *to_come.back();
        to_come.pop_back();
        QWidget* const widget = item.widget();
        if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus) {
            if (before != nullptr) {
                QWidget::setTabOrder(before, widget);
            }
            before = widget;
        }
        const std::vector<QLayoutItem*> inside = Inside(item);
        to_come.insert(to_come.end(), inside.rbegin(), inside.rend());
    }
}

}  // namespace orvik
