#include "toolkit/Prompts.h"

#include "toolkit/DialogPrompts.h"

namespace {

Prompts* s_installed = nullptr;

}

Prompts& Prompts::current()
{
    static DialogPrompts dialogs;
    return s_installed ? *s_installed : dialogs;
}

Prompts* Prompts::install(Prompts* prompts)
{
    Prompts* before = s_installed;
    s_installed = prompts;
    return before;
}
