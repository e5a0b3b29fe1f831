#include "desktop/tab_order.h"

#include <QLayout>
#include <QTabWidget>
#include <vector>

namespace orvik {
namespace {

void Collect(const QLayout& layout, std::vector<QWidget*>& widgets);

void Collect(QWidget& widget, std::vector<QWidget*>& widgets) {
    if (widget.focusPolicy() != Qt::NoFocus) {
        widgets.push_back(&widget);
    }
    if (const auto* const tabs = qobject_cast<QTabWidget*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            Collect(*tabs->widget(i), widgets);
        }
    } else if (widget.layout() != nullptr) {
        Collect(*widget.layout(), widgets);
    }
}

void Collect(const QLayout& layout, std::vector<QWidget*>& widgets) {
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem& item = *layout.itemAt(i);
        if (item.widget() != nullptr) {
            Collect(*item.widget(), widgets);
        } else if (item.layout() != nullptr) {
            Collect(*item.layout(), widgets);
        }
    }
}

}  // namespace

void OrderTabs(QWidget& window) {
    std::vector<QWidget*> widgets;
    Collect(*window.layout(), widgets);
    for (std::size_t i = 1; i < widgets.size(); ++i) {
        QWidget::setTabOrder(widgets[i - 1], widgets[i]);
    }
}

}  // namespace orvik
