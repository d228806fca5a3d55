#!/usr/bin/env bash
# Brings the catalogues of a folder up to date with the texts in the sources: new texts come in as unfinished,
# those that no source has any more go. LUPDATE names Qt's tool where it is not among the usual programs.
#
# Usage: tools/update_translations.sh [FOLDER]
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
folder="$(cd "${1:-$root/translations}" && pwd)"
lupdate="${LUPDATE:-$(PATH="$PATH:/usr/lib/qt6/bin" command -v lupdate || true)}"
if [[ -z "$lupdate" ]]; then
    echo "update_translations: lupdate is not installed (Debian: qt6-l10n-tools)" >&2
    exit 77
fi

shopt -s nullglob
for catalogue in "$folder"/*_*.ts; do
    name="$(basename "$catalogue" .ts)"
    case "${name%%_*}" in
        # The toolkit's texts are those of its panes, too.
        LayerManager) sources=("$root/src/layermanager" "$root/src/toolkit") ;;
        *) echo "update_translations: no sources are known for $catalogue" >&2; exit 1 ;;
    esac
    plurals=()
    [[ "$name" != *_en ]] || plurals=(-pluralonly)
    "$lupdate" "${sources[@]}" -I "$root/src" -silent -no-obsolete -locations none "${plurals[@]}" -ts "$catalogue"
done
