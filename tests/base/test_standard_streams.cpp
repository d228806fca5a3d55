#include "base/StandardStreams.h"

#include <QtGlobal>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace {
/// What the streams are when they are taken after the given ones were closed.
struct Streams
{
    std::array<bool, 3> areOpen = {};
    bool canRead = false;
    bool canWrite = false;
    int nextFile = -1;
};

Streams afterClosing(std::initializer_list<int> closed)
{
    std::array<int, 3> kept;
    for (int stream = 0; stream < 3; ++stream)
        kept[static_cast<std::size_t>(stream)] = ::fcntl(stream, F_DUPFD, 10);
    for (const int stream : closed)
        ::close(stream);
    occupyStandardStreams();
    Streams result;
    for (int stream = 0; stream < 3; ++stream)
        result.areOpen[static_cast<std::size_t>(stream)] = ::fcntl(stream, F_GETFD) != -1;
    result.nextFile = ::open("/dev/null", O_RDWR);
    char byte = 'x';
    result.canRead = ::read(STDIN_FILENO, &byte, 0) == 0;
    result.canWrite = ::write(STDOUT_FILENO, &byte, 0) == 0;
    ::close(result.nextFile);
    for (int stream = 0; stream < 3; ++stream) {
        ::dup2(kept[static_cast<std::size_t>(stream)], stream);
        ::close(kept[static_cast<std::size_t>(stream)]);
    }
    return result;
}
} // namespace

TEST(StandardStreams, ThatWereClosedGiveTheirPlaceToNoFile)
{
    const Streams streams = afterClosing({0, 1, 2});
    EXPECT_EQ((std::array{true, true, true}), streams.areOpen);
    EXPECT_GT(streams.nextFile, 2);
    EXPECT_FALSE(streams.canRead);
    EXPECT_FALSE(streams.canWrite);
}

TEST(StandardStreams, ThatAreOpenStayAsTheyAre)
{
    const Streams streams = afterClosing({2});
    EXPECT_EQ((std::array{true, true, true}), streams.areOpen);
    EXPECT_GT(streams.nextFile, 2);
    EXPECT_TRUE(streams.canWrite);
}
#endif
