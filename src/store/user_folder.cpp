#include "store/user_folder.h"

#include <glib.h>

namespace orvik {

std::string UserFolder(const char* variable, const char* in_home) {
    // GLib keeps the folder that it answered first.
    const gchar* const named = g_getenv(variable);
    return named != nullptr && g_path_is_absolute(named) != FALSE
               ? named
               : std::string(g_get_home_dir()) + "/" + in_home;
}

}  // namespace orvik
