#include "support/TestFailure.h"

#include <QTest>

#include <gtest/gtest.h>

void reportTestFailure(const QString& sentence)
{
    const QByteArray text = sentence.toUtf8();
    if (QTest::currentTestFunction())
        QTest::qFail(text.constData(), __FILE__, __LINE__);
    else
        ADD_FAILURE() << text.constData();
}
