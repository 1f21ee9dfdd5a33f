#pragma once

#include <QString>

// The two web addresses the program hands to the desktop's browser: the forum's page
// and the page that takes gifts. Both are given when the program is built (the options
// ZENKORA_FORUM_URL and ZENKORA_DONATION_URL) and are empty unless the builder gives
// them: the program never opens an address that nobody on the project answers for,
// least of all one that takes money. Without an address, what would lead there is
// left out or disabled.
class WebAddresses
{
public:
    static QString forum();
    static QString donation();
    // Replaces both for the rest of the process (tests); reset() puts back the built-in ones.
    static void set(const QString& forum, const QString& donation);
    static void reset();
};
