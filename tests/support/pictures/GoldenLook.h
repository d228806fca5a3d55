#pragma once

#include <QFont>
#include <QPalette>
#include <QString>

/// The look of golden screenshots while it lives: Fusion style, DejaVu Sans 9 pt (Debian package
/// fonts-dejavu-core), a fixed light or dark palette, no blinking and no animation.
class GoldenLook
{
public:
    enum class Theme { Light, Dark };

    explicit GoldenLook(Theme theme);
    ~GoldenLook();
    GoldenLook(const GoldenLook&) = delete;
    GoldenLook& operator=(const GoldenLook&) = delete;

    static QPalette palette(Theme theme);
    static QFont font();
    /// "light" or "dark", to name images by.
    static QString suffix(Theme theme);

private:
    QString m_style;
    QPalette m_palette;
    QFont m_font;
    int m_flashTime;
};
