#include "sdk/KestSharedGlobals.h"
#include "sdk/KsResString.h"
#include "support/ExpectedWarning.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr int kTitle = 84536;

/// A copy of the test module in a folder of its own, so that a string table can lie beside it.
class LanguageResources : public testing::Test
{
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_AT")));
        const QFileInfo original(QStringLiteral(SDK_TEST_MODULE));
        const QString copy = m_folder.filePath(original.fileName());
        ASSERT_TRUE(QFile::copy(original.filePath(), copy));
        m_library.setFileName(copy);
        m_anchor = reinterpret_cast<void*>(m_library.resolve("sdkTestAnchor"));
        ASSERT_NE(m_anchor, nullptr) << m_library.errorString().toStdString();
    }
    void TearDown() override
    {
        KsSetResourceHandle(0);
        QLocale::setDefault(QLocale::c());
        m_library.unload();
    }

    void writeTable(const char* language, const QByteArray& json)
    {
        QFile file(m_folder.filePath(
            QStringLiteral("sdk_test_module_%1.json").arg(QLatin1String(language))));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
    }
    static QString title()
    {
        return KsResString(kTitle, QStringLiteral("Layer Properties Manager"));
    }

    QTemporaryDir m_folder;
    QLibrary m_library;
    void* m_anchor = nullptr;
};

} // namespace

TEST_F(LanguageResources, GiveDefaultsWhileNoneIsCurrent)
{
    EXPECT_EQ(KsGetResourceHandle(), 0);
    EXPECT_EQ(title(), QStringLiteral("Layer Properties Manager"));
}

TEST_F(LanguageResources, GiveDefaultsForAModuleWithoutATable)
{
    const KsResourceHandle handle = KsLoadAppLangResourceDLL(m_anchor);
    EXPECT_GT(handle, 0);
    const KsResourceScope scope(handle);
    EXPECT_EQ(title(), QStringLiteral("Layer Properties Manager"));
}

TEST_F(LanguageResources, GiveTheTextsOfTheTableBesideTheModule)
{
    writeTable("de", R"({"84536": "Layer-Eigenschaften", "51575": "F1 dr\u00fccken"})");
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(title(), QStringLiteral("Layer-Eigenschaften"));
    EXPECT_EQ(KsResString(51575, {}), QStringLiteral("F1 dr\u00fccken"));
    EXPECT_EQ(KsResString(1, QStringLiteral("as it was")), QStringLiteral("as it was"));
}

TEST_F(LanguageResources, PreferTheTableOfTheCountry)
{
    writeTable("de", R"({"84536": "allgemein"})");
    writeTable("de_AT", R"({"84536": "hierzulande"})");
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(title(), QStringLiteral("hierzulande"));
}

TEST_F(LanguageResources, LoadTheSameTableOnce)
{
    writeTable("de", R"({"84536": "einmal"})");
    EXPECT_EQ(KsLoadAppLangResourceDLL(m_anchor), KsLoadAppLangResourceDLL(m_anchor));
}

TEST_F(LanguageResources, FollowAChangeOfTheLanguage)
{
    writeTable("de", R"({"84536": "deutsch"})");
    writeTable("sv", R"({"84536": "svenska"})");
    const KsResourceHandle german = KsLoadAppLangResourceDLL(m_anchor);
    QLocale::setDefault(QLocale(QStringLiteral("sv_SE")));
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_NE(KsGetResourceHandle(), german);
    EXPECT_EQ(title(), QStringLiteral("svenska"));
}

TEST_F(LanguageResources, AreEmptyAndLogAWarningWhenTheTableIsBroken)
{
    const QByteArray broken[] = {"{\"84536\": \"half", "", "[\"84536\"]", "\xFF\xFE\x00 not json"};
    const char* languages[] = {"de", "sv", "fr", "it"};
    for (size_t i = 0; i < std::size(broken); ++i) {
        writeTable(languages[i], broken[i]);
        QLocale::setDefault(QLocale(QString::fromLatin1(languages[i])));
        const ExpectedWarning expected(QStringLiteral("is no string table"));
        const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
        EXPECT_EQ(title(), QStringLiteral("Layer Properties Manager"));
    }
}

TEST_F(LanguageResources, LeaveOutEntriesThatAreNoTexts)
{
    writeTable("de", R"({"84536": 7, "51575": "Hilfe"})");
    const ExpectedWarning number(QStringLiteral("left out: 84536"));
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(title(), QStringLiteral("Layer Properties Manager"));
    EXPECT_EQ(KsResString(51575, {}), QStringLiteral("Hilfe"));
}

TEST_F(LanguageResources, LeaveOutEntriesWhoseKeyIsNoNumber)
{
    writeTable("de", R"({"title": "x", "84536": "Titel"})");
    const ExpectedWarning key(QStringLiteral("left out: title"));
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(title(), QStringLiteral("Titel"));
}

TEST_F(LanguageResources, AreCurrentForAScopeAndGiveWayToTheOneBefore)
{
    writeTable("de", R"({"84536": "innen"})");
    {
        const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
        EXPECT_EQ(title(), QStringLiteral("innen"));
    }
    EXPECT_EQ(title(), QStringLiteral("Layer Properties Manager"));
    EXPECT_EQ(KsSetResourceHandle(-5), 0);
    EXPECT_EQ(title(), QStringLiteral("Layer Properties Manager"));
}

TEST_F(LanguageResources, MakeTheHostsOwnCurrentOnlyWhenAskedTo)
{
    const int host = KestSharedGlobals::GetKestResourceInstance(false);
    EXPECT_GT(host, 0);
    EXPECT_EQ(KsGetResourceHandle(), 0);
    EXPECT_EQ(KestSharedGlobals::GetKestResourceInstance(true), host);
    EXPECT_EQ(KsGetResourceHandle(), host);
}
