#pragma once

#include "../PaletteFixture.h"
#include "Surfaces.h"

/// Each surface over a palette with a drawing, one after the other, in a language.
class SurfaceFixture : public PaletteFixture
{
    Q_OBJECT
protected:
    /// The palette comes up in the language of the catalogue; an empty path is English.
    void openPalette(const QString& catalogue);
    void finish() override;

    /// One row for each surface; to be called by a test's data function.
    static void addSurfaces();
    /// The surface of that row, shown.
    QWidget& show(int surface);

private:
    QPointer<QWidget> m_shown;
    QString m_module;
};
