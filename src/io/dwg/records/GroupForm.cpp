#include "io/dwg/records/GroupForm.h"

#include "io/dxf/text/GroupCode.h"

GroupForm groupForm(int code)
{
    struct Range
    {
        int first;
        int last;
        GroupForm form;
    };
    constexpr Range kOwn[] = {
        {5, 5, GroupForm::Text},         {10, 39, GroupForm::Point},
        {105, 105, GroupForm::Text},     {110, 139, GroupForm::Point},
        {210, 239, GroupForm::Point},    {280, 299, GroupForm::Int8},
        {1005, 1005, GroupForm::Handle}, {1010, 1039, GroupForm::Point},
    };
    for (const Range& range : kOwn) {
        if (code >= range.first && code <= range.last)
            return range.form;
    }
    if (!hasBinaryForm(code))
        return GroupForm::Unknown;
    switch (groupKind(code)) {
    case GroupKind::Text:
        return GroupForm::Text;
    case GroupKind::Handle:
        return GroupForm::Handle;
    case GroupKind::Real:
        return GroupForm::Real;
    case GroupKind::Int16:
        return GroupForm::Int16;
    case GroupKind::Int32:
        return GroupForm::Int32;
    case GroupKind::Int64:
        return GroupForm::Int64;
    case GroupKind::Bool:
        return GroupForm::Int8;
    default:
        return GroupForm::Chunk;
    }
}
