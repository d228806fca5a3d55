#pragma once

/// Context help of commands and dialogs. F1 does the same for a widget, and for what is in it, that
/// has its topic as the dynamic property "helpTopic" (an int).
class LocalSearch
{
public:
    /// Opens the host's help at a topic, its contents where the topic is not known. Without a host
    /// nothing happens.
    static void CommandRefHelp(int topic);
};
