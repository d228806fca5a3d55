#pragma once

#include <QByteArrayView>

#include <array>

/// A 64-bit sum over bytes that tells different files apart by accident, not by malice. Equal bytes
/// give equal sums on every machine, in whatever pieces they are added. It is fast rather than
/// strong: four words are mixed side by side.
class ContentHash
{
public:
    void add(QByteArrayView bytes);
    quint64 result() const;

    static quint64 of(QByteArrayView bytes);

private:
    static constexpr std::size_t kBlock = 32;
    void mix(const char* block);

    std::array<quint64, 4> m_lanes = {0x243F6A8885A308D3u, 0x13198A2E03707344u, 0xA4093822299F31D0u,
                                      0x082EFA98EC4E6C89u};
    std::array<char, kBlock> m_rest{};
    std::size_t m_restSize = 0;
    quint64 m_total = 0;
};
