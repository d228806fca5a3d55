#pragma once

/// Context help of commands and dialogs.
class LocalSearch
{
public:
    /// Opens the host's help at a topic, its contents where the topic is not known. Without a host
    /// nothing happens.
    static void CommandRefHelp(int topic);
};
