#!/usr/bin/env bash
# Rules that the compiler does not check: which folder may include which, how large a folder, a file and a function
# may be, what a widget is called, what no source holds, how sources are laid out. Prints one line per breach,
# exits 1 on any.
#
# Usage: tools/check_sources.sh [ROOT]
set -uo pipefail

root="${1:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)}"
cd "$root" || exit 2

mapfile -t sources < <(find src apps tests bench fuzz tools \( -name '*.cpp' -o -name '*.h' \) -type f 2>/dev/null | sort)
if [[ ${#sources[@]} -eq 0 ]]; then
    echo "check_sources: no sources below $root" >&2
    exit 2
fi

# Folders that each folder may include, or the one part of them; itself is meant too.
arrows="
src/base:
src/usage:
src/database: base
src/io: base database
src/sdk: base database io
src/toolkit: base
src/host: base usage database io sdk toolkit
src/layermanager: base database sdk toolkit
apps/kest: base usage database io sdk toolkit host
apps/layerman: base usage database io sdk layermanager host/text
"

widget_bases="QWidget|QDialog|QMainWindow|QDockWidget|QFrame|QAbstractScrollArea|QScrollArea|QAbstractItemView|\
QTreeView|QTableView|QListView|QHeaderView|QTreeWidget|QTableWidget|QListWidget|QToolBar|QStatusBar|QMenu|QMenuBar|\
QTabWidget|QTabBar|QStackedWidget|QSplitter|QGroupBox|QLabel|QLineEdit|QComboBox|QAbstractButton|QPushButton|\
QToolButton|QCheckBox|QPlainTextEdit|QTextEdit|QMessageBox|QWizard"

breaches() {
    awk -v arrows="$arrows" -v widgets="$widget_bases" '
        function report(text) { print FILENAME ":" FNR ": " text }
        BEGIN {
            count = split(arrows, rows, "\n")
            for (i = 1; i <= count; i++) {
                separator = index(rows[i], ":")
                if (!separator)
                    continue
                folder = substr(rows[i], 1, separator - 1)
                own = folder
                sub(/.*\//, "", own)
                allowed[folder] = " " own " " substr(rows[i], separator + 1) " "
                if (folder ~ /^src\//)
                    known[own] = 1
            }
        }
        FNR == 1 {
            finish()
            name = FILENAME
            split(FILENAME, parts, "/")
            folder = parts[1] "/" parts[2]
            ceiling = FILENAME ~ /\.h$/ ? 250 : 500
            body = 0
        }
        function finish() {
            if (name != "" && length_ > ceiling)
                print name ":" length_ ": longer than " ceiling " lines"
        }
        { length_ = FNR }
        # The layout puts the braces of a function on lines of their own; those of a class end with a semicolon.
        /^\{$/ { body = FNR }
        /^\}$/ {
            if (body && FNR - body - 1 > 60)
                print FILENAME ":" body ": a function of " FNR - body - 1 " lines, longer than 60"
            body = 0
        }
        /^[ \t]*#[ \t]*include[ \t]*<Qt[A-Za-z0-9]*\// { report("a module-prefixed include; write the class alone") }
        /^[ \t]*#[ \t]*include[ \t]*"/ && (folder in allowed) {
            target = $0
            sub(/^[^"]*"/, "", target)
            part = target
            sub(/[\/"].*/, "", target)
            sub(/\/[^\/]*".*/, "", part)
            if ((target in known) && !index(allowed[folder], " " target " ") && !index(allowed[folder], " " part " "))
                report(folder " may not include " target)
        }
        /TODO|FIXME/ { report("an open end; finish it or leave it out") }
        FILENAME ~ /^src\// && $0 ~ ("^[ \t]*class[ \t]+([A-Z_]+_EXPORT[ \t]+)?[A-Za-z0-9_]+([ \t]+final)?[ \t]*:.*public[ \t]+(" widgets ")([^A-Za-z0-9_]|$)") {
            class = $0
            sub(/^[ \t]*class[ \t]+([A-Z_]+_EXPORT[ \t]+)?/, "", class)
            sub(/[^A-Za-z0-9_].*/, "", class)
            if (class !~ /^C[A-Z]/)
                report("the widget class " class " does not start with C")
        }
        END { finish() }
    ' "${sources[@]}"
}

folder_breaches() {
    printf '%s\n' "${sources[@]%/*}" | sort | uniq -c | while read -r count folder; do
        ((count <= 25)) || echo "$folder: $count sources, more than 25"
    done
}

# The files of layermanager_core, as its CMakeLists.txt lists them, know no widget.
core_breaches() {
    local list=src/layermanager/CMakeLists.txt file
    [[ -f "$list" ]] || return 0
    sed -n '/^set(core_sources/,/)/p' "$list" | sed -e 's/^set(core_sources//' -e 's/[")]//g' | tr -s ' \t' '\n' \
        | grep -E '\.(cpp|h)$' | while read -r file; do
        [[ -f "src/layermanager/$file" ]] || continue
        grep -nE "#[[:space:]]*include[[:space:]]*(\"toolkit/|<($widget_bases|QApplication|QStyle[A-Za-z]*)>)" \
            "src/layermanager/$file" | sed "s|^|src/layermanager/$file:|; s|\$|  (the core knows no widgets)|"
    done
}

layout_breaches() {
    local formatter
    formatter="$(command -v clang-format-14 || true)"
    if [[ -z "$formatter" ]]; then
        echo "check_sources: clang-format 14 is not installed, layout not checked" >&2
        return 0
    fi
    [[ -f .clang-format ]] || return 0
    printf '%s\n' "${sources[@]}" | xargs -n 50 "$formatter" --dry-run -Werror 2>&1 \
        | sed -n 's/^\([^ :]*\):[0-9]*:[0-9]*: error: .*clang-format.*/\1: not laid out by clang-format/p' | sort -u
}

found="$(breaches; folder_breaches; core_breaches; layout_breaches)"
if [[ -n "$found" ]]; then
    printf '%s\n' "$found"
    echo "check_sources: $(printf '%s\n' "$found" | wc -l) breaches in ${#sources[@]} files"
    exit 1
fi
echo "check_sources: ${#sources[@]} files, no breach"
