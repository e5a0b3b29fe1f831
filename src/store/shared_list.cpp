#include "store/shared_list.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include <glib.h>

#include "app/text.h"
#include "store/kept_file.h"
#include "store/owned.h"

namespace orvik {
namespace {

constexpr const char* kProgram = "orvik";
// What starts the program with a file of the list.
constexpr const char* kCommand = "orvik %f";

struct TypeRow {
    std::string_view Ending;
    const char* Type;
};
constexpr std::array kTypes = {
    TypeRow{".ldif", "text/x-ldif"},
    TypeRow{".htm", "text/html"},
    TypeRow{".html", "text/html"},
    TypeRow{".csv", "text/csv"},
    TypeRow{".nv", "text/x-juno-addressbook"},
    TypeRow{".abx", "text/x-wordperfect-addressbook"},
    TypeRow{".pml", "text/x-pegasus-list"},
};

const char* TypeOf(const std::string& file) {
    const std::string name = ToLower(file);
    for (const TypeRow& row : kTypes) {
        if (name.ends_with(row.Ending)) {
            return row.Type;
        }
    }
    return "text/plain";
}

void Change(FileSystem& files,
            const std::string& list,
            const std::function<void(GBookmarkFile&)>& change) {
    RewriteKept(
        files, list, [&](const std::optional<std::string>& old) -> std::optional<std::string> {
            const std::unique_ptr<GBookmarkFile, decltype(&g_bookmark_file_free)> file(
                g_bookmark_file_new(), &g_bookmark_file_free);
            // What was not understood stays.
            if (old && !old->empty() &&
                g_bookmark_file_load_from_data(file.get(), old->data(), old->size(), nullptr) ==
                    FALSE) {
                return std::nullopt;
            }
            change(*file);
            gsize length = 0;
            const Owned<gchar> contents(g_bookmark_file_to_data(file.get(), &length, nullptr),
                                        &g_free);
            return contents == nullptr ? std::nullopt
                                       : std::optional(std::string(contents.get(), length));
        });
}

}  // namespace

void AddToSharedList(FileSystem& files, const std::string& list, const std::string& file) {
    const Owned<gchar> uri(g_filename_to_uri(file.c_str(), nullptr, nullptr), &g_free);
    if (uri == nullptr) {
        return;
    }
    Change(files, list, [&](GBookmarkFile& shared) {
        g_bookmark_file_set_mime_type(&shared, uri.get(), TypeOf(file));
        g_bookmark_file_add_application(&shared, uri.get(), kProgram, kCommand);
    });
}

void RemoveFromSharedList(FileSystem& files, const std::string& list) {
    if (!ReadKept(files, list)) {
        return;
    }
    Change(files, list, [](GBookmarkFile& shared) {
        const std::unique_ptr<gchar*, decltype(&g_strfreev)> uris(
            g_bookmark_file_get_uris(&shared, nullptr), &g_strfreev);
        for (gchar** uri = uris.get(); *uri != nullptr; ++uri) {
            if (g_bookmark_file_remove_application(&shared, *uri, kProgram, nullptr) == FALSE) {
                continue;
            }
            gsize others = 0;
            g_strfreev(g_bookmark_file_get_applications(&shared, *uri, &others, nullptr));
            if (others == 0) {
                g_bookmark_file_remove_item(&shared, *uri, nullptr);
            }
        }
    });
}

}  // namespace orvik
