#include "sdk/KestSharedGlobals.h"
#include "sdk/texts/CatalogueFormat.h"
#include "sdk/texts/KsResString.h"
#include "support/CatalogueBytes.h"
#include "support/ExpectedWarning.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QLocale>
#include <QTemporaryDir>
#include <QTranslator>

#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr int kTitle = 84536;
constexpr char kDefaultTitle[] = "Layer Properties Manager";
constexpr KsResText kTexts[] = {
    {kTitle, QT_TRANSLATE_NOOP3("KsResString", "Layer Properties Manager", "84536")},
    {51575, QT_TRANSLATE_NOOP3("KsResString", "Press F1 for more help.", "51575")},
};

/// A copy of the test module in a folder of its own, so that a catalogue can lie beside it.
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
        KsLoadAppLangResourceDLL(m_anchor); // the language of this test goes
        m_library.unload();
    }

    QString catalogue(const char* language) const
    {
        return m_folder.filePath(
            QStringLiteral("sdk_test_module_%1.qm").arg(QLatin1String(language)));
    }
    void write(const char* language, const QByteArray& bytes)
    {
        QFile file(catalogue(language));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void writeTitle(const char* language, const QString& title)
    {
        write(language, catalogueBytes({{"KsResString", kDefaultTitle, "84536", title}}));
    }
    static QString title() { return KsResString(kTitle, QLatin1String(kDefaultTitle)); }

    QTemporaryDir m_folder;
    QLibrary m_library;
    void* m_anchor = nullptr;
};

} // namespace

TEST_F(LanguageResources, GiveDefaultsWhileNoneIsCurrent)
{
    EXPECT_EQ(KsGetResourceHandle(), 0);
    EXPECT_EQ(title(), QLatin1String(kDefaultTitle));
}

TEST_F(LanguageResources, GiveDefaultsForAModuleWithoutACatalogue)
{
    const KsResourceHandle handle = KsLoadAppLangResourceDLL(m_anchor);
    EXPECT_GT(handle, 0);
    const KsResourceScope scope(handle);
    EXPECT_EQ(title(), QLatin1String(kDefaultTitle));
}

TEST_F(LanguageResources, GiveTheTextsOfTheCatalogueBesideTheModule)
{
    write("de",
          catalogueBytes({{"KsResString", kDefaultTitle, "84536", QStringLiteral("Layer-Manager")},
                          {"KsResString", "Press F1 for more help.", "51575",
                           QStringLiteral("F1 dr\u00fccken")}}));
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(title(), QStringLiteral("Layer-Manager"));
    EXPECT_EQ(KsResString(kTexts, 51575), QStringLiteral("F1 dr\u00fccken"));
    EXPECT_EQ(KsResString(kTexts[0]), QStringLiteral("Layer-Manager"));
    EXPECT_EQ(KsResString(1, QStringLiteral("as it was")), QStringLiteral("as it was"));
    EXPECT_THROW(KsResString(kTexts, 1), std::out_of_range);
}

TEST_F(LanguageResources, TellEqualTextsApartByTheirId)
{
    write("de",
          catalogueBytes({{"KsResString", "On", "84773", QStringLiteral("Ein")},
                          {"KsResString", "On", "84000", QStringLiteral("An")}}));
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(KsResString(84773, QStringLiteral("On")), QStringLiteral("Ein"));
    EXPECT_EQ(KsResString(84000, QStringLiteral("On")), QStringLiteral("An"));
}

TEST_F(LanguageResources, TranslateTheOtherTextsOfTheModuleToo)
{
    write("de", catalogueBytes({{"LayerCells", "Frozen", "", QStringLiteral("Gefroren")}}));
    KsLoadAppLangResourceDLL(m_anchor);
    EXPECT_EQ(QCoreApplication::translate("LayerCells", "Frozen"), QStringLiteral("Gefroren"));
    QLocale::setDefault(QLocale::c());
    KsLoadAppLangResourceDLL(m_anchor);
    EXPECT_EQ(QCoreApplication::translate("LayerCells", "Frozen"), QStringLiteral("Frozen"));
}

TEST_F(LanguageResources, AreReadAlsoWhileNoneIsCurrent)
{
    writeTitle("de", QStringLiteral("immer"));
    KsLoadAppLangResourceDLL(m_anchor);
    EXPECT_EQ(KsGetResourceHandle(), 0);
    EXPECT_EQ(title(), QStringLiteral("immer"));
}

TEST_F(LanguageResources, PreferTheCatalogueOfTheCountry)
{
    writeTitle("de", QStringLiteral("allgemein"));
    writeTitle("de_AT", QStringLiteral("hierzulande"));
    const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
    EXPECT_EQ(title(), QStringLiteral("hierzulande"));
}

TEST_F(LanguageResources, LoadTheSameCatalogueOnce)
{
    writeTitle("de", QStringLiteral("einmal"));
    EXPECT_EQ(KsLoadAppLangResourceDLL(m_anchor), KsLoadAppLangResourceDLL(m_anchor));
}

TEST_F(LanguageResources, FollowAChangeOfTheLanguage)
{
    writeTitle("de", QStringLiteral("deutsch"));
    writeTitle("sv", QStringLiteral("svenska"));
    const KsResourceHandle german = KsLoadAppLangResourceDLL(m_anchor);
    QLocale::setDefault(QLocale(QStringLiteral("sv_SE")));
    const KsResourceHandle swedish = KsLoadAppLangResourceDLL(m_anchor);
    EXPECT_NE(swedish, german);
    EXPECT_EQ(title(), QStringLiteral("svenska"));
    const KsResourceScope scope(german);
    EXPECT_EQ(title(), QStringLiteral("deutsch"));
}

TEST_F(LanguageResources, AreEmptyAndLogAWarningWhenTheFileIsNoCatalogue)
{
    const QByteArray foreign[] = {"{\"84536\": \"half", "", "\xFF\xFE\x00 no catalogue",
                                  catalogueBytes({}).first(16) + "\x96\x00\x00\x00\x01x",
                                  catalogueBytes({}).first(16) + "\x2f\x00\x00\x00\x02\x00\x00"};
    const char* languages[] = {"de", "sv", "fr", "it", "nl"};
    for (size_t i = 0; i < std::size(foreign); ++i) {
        write(languages[i], foreign[i]);
        QLocale::setDefault(QLocale(QString::fromLatin1(languages[i])));
        const ExpectedWarning expected(QStringLiteral("is not used as a catalogue"));
        const KsResourceScope scope(KsLoadAppLangResourceDLL(m_anchor));
        EXPECT_EQ(title(), QLatin1String(kDefaultTitle));
    }
}

/// Each byte of a small catalogue is changed in turn, and the file is cut off after each one. A
/// lookup in what is accepted reads nothing outside of the bytes.
TEST_F(LanguageResources, StandACatalogueWithAnyByteBroken)
{
    const QByteArray sound =
        catalogueBytes({{"KsResString", kDefaultTitle, "84536", QStringLiteral("Layer-Manager")},
                        {"LayerCells", "Frozen", "", QStringLiteral("Gefroren")}});
    ASSERT_EQ(catalogueFault(sound), nullptr);
    // What follows an empty section is not read, so it must not be what is checked either.
    const QByteArray empty("\x69\x00\x00\x00\x00", 5);
    EXPECT_NE(catalogueFault(sound + empty + sound.mid(16)), nullptr);
    int refused = 0;
    for (qsizetype at = 0; at < sound.size(); ++at) {
        EXPECT_NE(catalogueFault(sound.first(at)), nullptr) << at;
        for (const char value : {'\x00', '\x01', '\x7f', '\xff'}) {
            QByteArray broken = sound;
            broken[at] = value;
            if (catalogueFault(broken)) {
                ++refused;
                continue;
            }
            QTranslator translator;
            const std::vector<uchar> exact(broken.begin(), broken.end());
            if (!translator.load(exact.data(), static_cast<int>(exact.size())))
                continue;
            EXPECT_LE(translator.translate("KsResString", kDefaultTitle, "84536").size(), 200);
            EXPECT_LE(translator.translate("LayerCells", "Frozen").size(), 200);
        }
    }
    EXPECT_GT(refused, sound.size());
}

TEST_F(LanguageResources, MakeTheHostsOwnCurrentOnlyWhenAskedTo)
{
    const int host = KestSharedGlobals::GetKestResourceInstance(false);
    EXPECT_GT(host, 0);
    EXPECT_EQ(KsGetResourceHandle(), 0);
    EXPECT_EQ(KestSharedGlobals::GetKestResourceInstance(true), host);
    EXPECT_EQ(KsGetResourceHandle(), host);
}
