#include "app/webaddresses.h"

// The build passes the two options as string literals; a build outside CMake has none.
#ifndef ZENKORA_FORUM_URL
#define ZENKORA_FORUM_URL ""
#endif
#ifndef ZENKORA_DONATION_URL
#define ZENKORA_DONATION_URL ""
#endif

namespace {

struct Addresses
{
    QString forum = QString::fromUtf8(ZENKORA_FORUM_URL);
    QString donation = QString::fromUtf8(ZENKORA_DONATION_URL);
};

Addresses& current()
{
    static Addresses addresses;
    return addresses;
}

} // namespace

QString WebAddresses::forum()
{
    return current().forum;
}

QString WebAddresses::donation()
{
    return current().donation;
}

void WebAddresses::set(const QString& forum, const QString& donation)
{
    current() = {forum, donation};
}

void WebAddresses::reset()
{
    current() = Addresses();
}
