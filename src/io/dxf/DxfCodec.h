#pragma once

#include "io/DrawingCodec.h"

/// DXF, R12 to 2018, text (ASCII) and binary.
class DxfCodec final : public DrawingCodec
{
public:
    bool recognises(QByteArrayView head) const override;
    std::unique_ptr<OdDbDatabase> read(std::shared_ptr<const FileImage> image,
                                       const IoProgress& progress) const override;
};
