#include "support/GuardedTest.h"

GuardedTest::GuardedTest() = default;
GuardedTest::~GuardedTest() = default;

void GuardedTest::init()
{
    // Qt Test puts its own message handler in place when it starts; the guard has to come after it.
    m_guard = std::make_unique<LogGuard>();
    prepare();
}

void GuardedTest::cleanup()
{
    finish();
    m_guard.reset();
}
