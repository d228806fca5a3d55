#include "database/values/OdError.h"
#include "host/window/KestApplication.h"
#include "support/RecordingPrompts.h"

#include <QTimer>

#include <gtest/gtest.h>
#include <stdexcept>

namespace {
/// What is shown when a handler of an event raises that.
template <class Error>
std::string shownFor(KestApplication& application, const Error& error)
{
    RecordingPrompts prompts;
    prompts.willCloseMessage();
    QObject receiver;
    const auto handler = [&] { throw Error(error); };
    QMetaObject::invokeMethod(&receiver, handler, Qt::QueuedConnection);
    application.sendPostedEvents(&receiver);
    return prompts.texts().join(QLatin1Char('|')).toStdString();
}
} // namespace

TEST(EventBoundary, WhatHandlersRaiseIsShownInWordsAndTheProgramGoesOn)
{
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    KestApplication application(count, arguments);
    EXPECT_EQ("The index is out of range.", shownFor(application, OdError_InvalidIndex()));
    EXPECT_EQ("Something went wrong: no luck",
              shownFor(application, std::runtime_error("no luck")));
    EXPECT_EQ("Something went wrong.", shownFor(application, 42));
}
