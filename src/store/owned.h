// Memory that GLib allocated.

#pragma once

#include <memory>

#include <glib.h>

namespace orvik {

template <class T>
using Owned = std::unique_ptr<T, decltype(&g_free)>;

}  // namespace orvik
