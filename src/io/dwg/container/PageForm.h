#pragma once

#include "io/dwg/container/DwgFile.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QtEndian>

#include <array>

/// How pages and heads of a paged DWG file look, byte for byte.
namespace PageForm {

/// The names of the sections that are read, by DwgSection.
constexpr std::array<QByteArrayView, kDwgSections> kSectionNames = {
    "AcDb:Header", "AcDb:Classes", "AcDb:Handles", "AcDb:AcDbObjects", "AcDb:Template"};

constexpr const char* kAuxHeader = "AcDb:AuxHeader";

// The second head of the file; a copy of it ends the file. Its bytes are masked.
constexpr quint64 kHeadAt = 0x80;
constexpr int kHeadSize = 0x6C;
constexpr QByteArrayView kHeadMark("AcFssFcAJMB", 12);
enum HeadField : int {
    kGapRoot = 0x18, ///< gaps form a tree
    kLowestLeftGap = 0x1C,
    kLowestRightGap = 0x20,
    kLastPage = 0x28,
    kLastPageEnd = 0x2C, ///< addresses count from the first page
    kHeadCopyAddress = 0x34, ///< counts from the start of the file
    kGaps = 0x3C,
    kPages = 0x40,
    kPageMapNumber = 0x50,
    kPageMapAddress = 0x54,
    kSectionMapNumber = 0x5C,
    kHighestPage = 0x60,
    kHighestGap = 0x64,
    kHeadSum = 0x68,
};

constexpr quint64 kFirstPage = 0x100;
constexpr qsizetype kAlignment = 0x20;

// Pages of the maps: type, size, packed size, kind of compression, sum.
constexpr quint32 kPageMapType = 0x41630E3B;
constexpr quint32 kSectionMapType = 0x4163003B;
constexpr int kSystemHead = 20;
constexpr int kSystemSum = 16;

// Pages of data: type, section, packed size, size in the file, start (8 bytes), sum of the head,
// sum of the packed data. The head is masked by its place.
constexpr quint32 kDataPageType = 0x4163043B;
constexpr int kDataHead = 32;
constexpr int kDataHeadSum = 24;
constexpr int kDataSum = 28;

constexpr quint32 kPacked = 2;

// An entry of the section map: size (8 bytes), pages, size of a page, 1, 2 where it is packed,
// number, encryption, name; then its pages with number, packed size and start (8 bytes).
constexpr int kNameSize = 64;
constexpr int kSectionHead = 32 + kNameSize;
constexpr int kSectionPage = 16;
constexpr int kSectionMapHead = 20;

template <class Word>
Word word(const char* at)
{
    return qFromLittleEndian<Word>(at);
}
template <class Word>
void put(QByteArray& bytes, qsizetype at, Word value)
{
    qToLittleEndian(value, bytes.data() + at);
}

/// Pseudo-random bytes, which mask the head of the file and fill up pages.
const QByteArray& noise();
/// The head of the file masked, or unmasked.
QByteArray maskedHead(QByteArrayView head);
/// The head of a page of data masked, or unmasked.
QByteArray maskedPageHead(QByteArrayView head, quint64 offset);
/// A page with one of the maps: its head, packed data, a head without data, which ends the page,
/// and what fills it up.
QByteArray systemPage(quint32 type, const QByteArray& map);
/// The sum of a head with its own field as zero.
quint32 headSum(QByteArray head, int field, quint32 seed);

} // namespace PageForm
