#include "desktop/session/end_signals.h"

#include <utility>

#include "platform/system_files.h"

namespace orvik {

EndSignals::EndSignals(std::function<void()> before_end) {
    const int told = TellOfSignals();
    if (told < 0) {
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(told, QSocketNotifier::Read);
    connect(notifier_.get(),
            &QSocketNotifier::activated,
            this,
            [this, before_end = std::move(before_end)] {
                notifier_->setEnabled(false);
                before_end();
                EndBySignal();
            });
}

}  // namespace orvik
