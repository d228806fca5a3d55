#pragma once

#include "io/DrawingCodec.h"

/// DWG, R13 to 2018.
class DwgCodec final : public DrawingCodec
{
public:
    bool recognises(QByteArrayView head) const override;
    std::unique_ptr<OdDbDatabase> read(std::shared_ptr<const FileImage> image,
                                       const IoProgress& progress) const override;
};
