// A run of a window's benchmark reads and writes nothing of the user's, and has no display.

#pragma once

#include <QTemporaryDir>
#include <QtGlobal>

namespace orvik::bench {

inline void LiveIn(const QTemporaryDir& own) {
    for (const char* const variable : {"XDG_CONFIG_HOME",
                                       "XDG_CACHE_HOME",
                                       "XDG_STATE_HOME",
                                       "XDG_DATA_HOME",
                                       "XDG_RUNTIME_DIR"}) {
        qputenv(variable, own.path().toLocal8Bit());
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

}  // namespace orvik::bench
