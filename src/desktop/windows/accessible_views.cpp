#include "desktop/windows/accessible_views.h"

#include <QAccessibleWidget>
#include <QVariant>

#include "desktop/views/picture_view.h"
#include "desktop/windows/form_window.h"

namespace orvik {
namespace {

// The box's progress in per cent, for readers that announce it.
class AccessiblePicture : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    explicit AccessiblePicture(PictureView& view)
        : QAccessibleWidget(&view, QAccessible::Graphic), view_(view) {}

    [[nodiscard]] QAccessible::Role role() const override {
        return view_.showsProgress() ? QAccessible::ProgressBar : QAccessible::Graphic;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface && view_.showsProgress()
                   ? static_cast<QAccessibleValueInterface*>(this)
                   : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QVariant currentValue() const override { return view_.progress() / kPerCent; }
    void setCurrentValue(const QVariant& /*value*/) override {}
    [[nodiscard]] QVariant maximumValue() const override { return 100; }
    [[nodiscard]] QVariant minimumValue() const override { return 0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

 private:
    // The view counts thousandths.
    static constexpr int kPerCent = 10;

    PictureView& view_;
};

// Qt asks for each class of an object, from the most derived on, and owns what it gets.
QAccessibleInterface* Describe(const QString& class_name, QObject* object) {
    if (class_name == QLatin1String(FormWindow::staticMetaObject.className())) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Dialog);
    }
    if (class_name == QLatin1String(PictureView::staticMetaObject.className())) {
        return new AccessiblePicture(*static_cast<PictureView*>(object));
    }
    return nullptr;
}

}  // namespace

void DescribeViews() {
    QAccessible::installFactory(Describe);
}

}  // namespace orvik
