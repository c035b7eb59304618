#ifndef KELMORA_HOST_OWNERSHIP_H
#define KELMORA_HOST_OWNERSHIP_H

// What records own, for host/record.h: one specialisation for each record or node that has a chain or a text of its
// own.

#include "kelmora_records.h"

namespace kelmora_host {

template <> struct Owned<kelmora_datetime> {
    template <class Visitor> static void visit(kelmora_datetime &datetime, Visitor &visitor)
    {
        visitor.chain(datetime.timezone_list);
    }
};

template <> struct Owned<kelmora_limited_user_permissions> {
    template <class Visitor> static void visit(kelmora_limited_user_permissions &permissions, Visitor &visitor)
    {
        visitor.chain(permissions.limited_user_permissions);
    }
};

template <> struct Owned<kelmora_limits> {
    template <class Visitor> static void visit(kelmora_limits &limits, Visitor &visitor)
    {
        visitor.chain(limits.wifi_limits);
    }
};

template <> struct Owned<kelmora_bridging> {
    template <class Visitor> static void visit(kelmora_bridging &bridging, Visitor &visitor)
    {
        visitor.chain(bridging.mac_list);
    }
};

template <> struct Owned<kelmora_connected_device> {
    template <class Visitor> static void visit(kelmora_connected_device &device, Visitor &visitor)
    {
        visitor.chain(device.ip6_list);
    }
};

template <> struct Owned<kelmora_dhcp_server> {
    template <class Visitor> static void visit(kelmora_dhcp_server &server, Visitor &visitor)
    {
        visitor.chain(server.leases);
    }
};

template <> struct Owned<kelmora_interface> {
    template <class Visitor> static void visit(kelmora_interface &interface, Visitor &visitor)
    {
        visitor.chain(interface.ip6_list);
    }
};

} // namespace kelmora_host

#endif
