#pragma once

/// Who does the commands of toolbars, and decides which of them are enabled and checked.
class PaneCommandTarget
{
public:
    virtual ~PaneCommandTarget() = default;

    virtual void command(int id) = 0;
    virtual bool isCommandEnabled(int id) const = 0;
    virtual bool isCommandChecked(int id) const = 0;
};
