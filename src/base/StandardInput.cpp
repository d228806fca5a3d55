#include "base/StandardInput.h"

#include "base/StopSignal.h"

#include <QtGlobal>

#include <cerrno>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

qint64 StandardInput::readData(char* data, qint64 size)
{
    if (StopSignal::number() != 0)
        return -1;
#ifdef Q_OS_UNIX
    for (;;) {
        const ssize_t got = ::read(STDIN_FILENO, data, static_cast<std::size_t>(size));
        if (got > 0)
            return got;
        if (got == 0 || StopSignal::number() != 0)
            return -1;
        if (errno != EINTR) {
            m_hasFailed = true;
            return -1;
        }
    }
#else
    const std::size_t got = std::fread(data, 1, static_cast<std::size_t>(size), stdin);
    m_hasFailed = std::ferror(stdin) != 0;
    return got > 0 ? static_cast<qint64>(got) : -1;
#endif
}
