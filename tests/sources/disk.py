"""Below the windows every file is reached through the file layer."""

import fnmatch
import re

from tree import folder_of

# Where the layer stands, and what only it includes.
LAYER = "src/platform/*"
SYSTEM = "src/platform/system_*"
STREAMS = ("fstream", "cstdio", "stdio.h")

# What asks the disk: the functions that a path brings with it, those of the system by their full
# names, and GLib's.
OF_PATHS = (
    "absolute canonical copy copy_file copy_symlink create_directories create_directory"
    " create_directory_symlink create_hard_link create_symlink current_path directory_iterator"
    " equivalent exists file_size hard_link_count is_block_file is_character_file is_directory"
    " is_empty is_fifo is_other is_regular_file is_socket is_symlink last_write_time permissions"
    " proximate read_symlink recursive_directory_iterator relative remove remove_all rename"
    " resize_file space status symlink_status temp_directory_path weakly_canonical"
)
ASKS = re.compile(
    r"\b(?:fs|filesystem)::(?!path\b)\w+"
    rf"|(?<![\w.>:])(?:{'|'.join(OF_PATHS.split())})\s*\("
    r"|(?<![\w>])::[a-z_]\w*\s*\("
    r"|\bg_(?:file_|mkdir)\w+"
    r"|\bg_(?:access|chmod|creat|dir_open|fopen|lstat|open|remove|rename|rmdir|stat|unlink)\b"
    r"|\bg_key_file_(?:load_from_(?:file|dirs|data_dirs)|save_to_file)\b"
)
NO_CODE = re.compile(r'"(?:\\.|[^"\\])*"|//.*')


def disk(tree):
    for path in tree.sources("src"):
        if folder_of(path) == "desktop" or fnmatch.fnmatchcase(path, SYSTEM):
            continue
        for one in tree.includes(path):
            paths = one.name == "filesystem" and not fnmatch.fnmatchcase(path, LAYER)
            if paths or one.name in STREAMS:
                yield path, one.line, f"<{one.name}> goes past platform/file_system.h"
        for number, line in tree.lines(path):
            for found in ASKS.finditer(NO_CODE.sub("", line)):
                asks = found[0].rstrip(" (")
                yield path, number, f"{asks} goes past platform/file_system.h"
