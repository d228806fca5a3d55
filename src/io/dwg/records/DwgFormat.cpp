#include "io/dwg/records/DwgFormat.h"

#include <array>
#include <mutex>
#include <optional>

namespace {

/// By the format's number, from 0; an empty name is a number that says nothing.
constexpr std::array<const char*, 45> kCodePages = {
    "",          "ascii",     "iso8859-1", "iso8859-2", "iso8859-3", "iso8859-4", "iso8859-5",
    "iso8859-6", "iso8859-7", "iso8859-8", "iso8859-9", "dos437",    "dos850",    "dos852",
    "dos855",    "dos857",    "dos860",    "dos861",    "dos863",    "dos864",    "dos865",
    "dos869",    "dos932",    "mac-roman", "big5",      "ksc5601",   "johab",     "dos866",
    "ansi_1250", "ansi_1251", "ansi_1252", "gb2312",    "ansi_1253", "ansi_1254", "ansi_1255",
    "ansi_1256", "ansi_1257", "ansi_874",  "ansi_932",  "ansi_936",  "ansi_949",  "ansi_950",
    "ansi_1361", "",          "ansi_1258"};

} // namespace

DwgFormat DwgFormat::of(DrawingVersion version, int codePage)
{
    return {version, textOf(codePage), codePage};
}

const DxfText& DwgFormat::textOf(int codePage)
{
    static std::array<std::optional<DxfText>, kCodePages.size()> made;
    static std::mutex mutex;
    const bool known = codePage > 0 && codePage < static_cast<int>(kCodePages.size());
    const auto number = static_cast<std::size_t>(known ? codePage : 0);
    const std::lock_guard lock(mutex);
    if (!made[number])
        made[number] = DxfText::ofBytes(kCodePages[number]);
    return *made[number];
}
