// What GMime and GLib give, freed when it goes.

#pragma once

#include <memory>

#include <gmime/gmime.h>

namespace orvik::book {

template <class Thing, void (*Free)(Thing*)>
struct GFree {
    void operator()(Thing* thing) const { Free(thing); }
};
template <class Thing, void (*Free)(Thing*)>
using GRefOf = std::unique_ptr<Thing, GFree<Thing, Free>>;

struct GUnref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class Object>
using GRef = std::unique_ptr<Object, GUnref>;

struct GTextFree {
    void operator()(char* text) const { g_free(text); }
};
using GText = std::unique_ptr<char, GTextFree>;

// How messages are read: as leniently as the library can, letters that are not declared as UTF-8 or
// windows-1252. Starts the library when it is asked for first.
[[nodiscard]] GMimeParserOptions* MailOptions();

}  // namespace orvik::book
