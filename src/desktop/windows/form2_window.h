// Shows Form2: the preferences on three tabs.

#pragma once

#include "desktop/windows/form_window.h"
#include "settings/form2.h"

class QBoxLayout;
class QGridLayout;
class QLabel;

namespace orvik {

class Form2Window : public FormWindow {
    Q_OBJECT
 public:
    // All must outlive the window.
    Form2Window(Module1& module, Desktop& desktop, QWidget* owner);

    // At the first start it says why it is there.
    void setVisible(bool visible) override;

 protected:
    // It opens on its first tab.
    void showEvent(QShowEvent* event) override;

 private:
    // The column of a tab.
    QBoxLayout& page(int tab);
    void layOutFormats();
    void layOutPim();
    void layOutAutomation();
    void addSteps(QGridLayout& grid);

    const Form2& form_;
    QLabel* first_start_;
};

}  // namespace orvik
