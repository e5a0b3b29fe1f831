#include "store/shared_list.h"

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>
#include <system_error>

#include <glib.h>

#include "app/text.h"
#include "platform/system_files.h"
#include "store/owned.h"
#include "store/user_folder.h"

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

void Change(const std::string& list, const std::function<void(GBookmarkFile&)>& change) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::status(list, error);
    const bool missing = status.type() == fs::file_type::not_found;
    // Whoever wants no such list makes something else of it.
    if (!missing && status.type() != fs::file_type::regular) {
        return;
    }
    const std::unique_ptr<GBookmarkFile, decltype(&g_bookmark_file_free)> file(
        g_bookmark_file_new(), &g_bookmark_file_free);
    if (!missing && fs::file_size(list, error) > 0 &&
        g_bookmark_file_load_from_file(file.get(), list.c_str(), nullptr) == FALSE) {
        return;
    }
    change(*file);
    g_mkdir_with_parents(fs::path(list).parent_path().c_str(), kFolderMode);
    gsize length = 0;
    const Owned<gchar> contents(g_bookmark_file_to_data(file.get(), &length, nullptr), &g_free);
    if (contents != nullptr) {
        g_file_set_contents_full(SystemFiles().ResolveLinks(list).c_str(),
                                 contents.get(),
                                 static_cast<gssize>(length),
                                 G_FILE_SET_CONTENTS_CONSISTENT,
                                 kFileMode,
                                 nullptr);
    }
}

}  // namespace

void AddToSharedList(const std::string& list, const std::string& file) {
    const Owned<gchar> uri(g_filename_to_uri(file.c_str(), nullptr, nullptr), &g_free);
    if (uri == nullptr) {
        return;
    }
    Change(list, [&](GBookmarkFile& shared) {
        g_bookmark_file_set_mime_type(&shared, uri.get(), TypeOf(file));
        g_bookmark_file_add_application(&shared, uri.get(), kProgram, kCommand);
    });
}

void RemoveFromSharedList(const std::string& list) {
    std::error_code error;
    if (!std::filesystem::exists(list, error)) {
        return;
    }
    Change(list, [](GBookmarkFile& shared) {
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
