#include "app/form.h"

#include "app/module1.h"

namespace orvik {

void Form::Load() {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
}

void Form::Show(Showing showing) {
    Load();
    if (!visible_) {
        visible_ = true;
        Form_Resize();
    }
    module_.platform.ShowForm(*this, showing);
}

void Form::Hide() {
    if (visible_) {
        visible_ = false;
        module_.platform.HideForm(*this);
    }
}

void Form::Unload() {
    if (loaded_ && Form_Unload()) {
        loaded_ = false;
        visible_ = false;
        module_.platform.CloseForm(*this);
    }
}

}  // namespace orvik
