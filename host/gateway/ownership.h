#ifndef KELMORA_HOST_GATEWAY_OWNERSHIP_H
#define KELMORA_HOST_GATEWAY_OWNERSHIP_H

// What records own, for host/gateway/record.h: one specialisation for each record or node that has a chain or a text of
// its own.

#include "kelmora_records.h"

namespace kelmora_host {

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

template <> struct Owned<kelmora_datetime> {
    template <class Visitor> static void visit(kelmora_datetime &datetime, Visitor &visitor)
    {
        visitor.chain(datetime.timezone_list);
    }
};

template <> struct Owned<kelmora_dhcp_server> {
    template <class Visitor> static void visit(kelmora_dhcp_server &server, Visitor &visitor)
    {
        visitor.chain(server.leases);
    }
};

template <> struct Owned<kelmora_easymesh> {
    template <class Visitor> static void visit(kelmora_easymesh &mesh, Visitor &visitor)
    {
        visitor.chain(mesh.neighbors);
    }
};

template <> struct Owned<kelmora_easymesh_neighbor> {
    template <class Visitor> static void visit(kelmora_easymesh_neighbor &neighbor, Visitor &visitor)
    {
        visitor.chain(neighbor.neighbors);
    }
};

template <> struct Owned<kelmora_firewall_domain_blocking> {
    template <class Visitor> static void visit(kelmora_firewall_domain_blocking &blocking, Visitor &visitor)
    {
        visitor.chain(blocking.domains);
    }
};

template <> struct Owned<kelmora_firewall_ip_port_filtering> {
    template <class Visitor> static void visit(kelmora_firewall_ip_port_filtering &filter, Visitor &visitor)
    {
        visitor.chain(filter.filter_lists);
    }
};

template <> struct Owned<kelmora_firewall_mac_filtering> {
    template <class Visitor> static void visit(kelmora_firewall_mac_filtering &filter, Visitor &visitor)
    {
        visitor.chain(filter.entry);
    }
};

template <> struct Owned<kelmora_firewall_url_blocking> {
    template <class Visitor> static void visit(kelmora_firewall_url_blocking &blocking, Visitor &visitor)
    {
        visitor.chain(blocking.urls);
        visitor.chain(blocking.keywords);
    }
};

template <> struct Owned<kelmora_http_request> {
    template <class Visitor> static void visit(kelmora_http_request &request, Visitor &visitor)
    {
        visitor.text(request.body);
    }
};

template <> struct Owned<kelmora_interface> {
    template <class Visitor> static void visit(kelmora_interface &interface, Visitor &visitor)
    {
        visitor.chain(interface.ip6_list);
    }
};

template <> struct Owned<kelmora_ipv6_dhcp_server> {
    template <class Visitor> static void visit(kelmora_ipv6_dhcp_server &server, Visitor &visitor)
    {
        visitor.chain(server.domains);
        visitor.chain(server.dns_servers);
    }
};

template <> struct Owned<kelmora_ipv6_static_route_list> {
    template <class Visitor> static void visit(kelmora_ipv6_static_route_list &routes, Visitor &visitor)
    {
        visitor.chain(routes.ipv6_static_route_list);
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

template <> struct Owned<kelmora_parental_control> {
    template <class Visitor> static void visit(kelmora_parental_control &control, Visitor &visitor)
    {
        visitor.chain(control.parental_control_list);
    }
};

template <> struct Owned<kelmora_qos_available_dscp> {
    template <class Visitor> static void visit(kelmora_qos_available_dscp &entry, Visitor &visitor)
    {
        visitor.text(entry.dscp);
    }
};

template <> struct Owned<kelmora_tr069_inform> {
    template <class Visitor> static void visit(kelmora_tr069_inform &inform, Visitor &visitor)
    {
        visitor.text(inform.cause);
    }
};

template <> struct Owned<kelmora_tr369_local_agent_controller> {
    template <class Visitor> static void visit(kelmora_tr369_local_agent_controller &controller, Visitor &visitor)
    {
        visitor.chain(controller.mtp);
    }
};

template <> struct Owned<kelmora_tr369_mqtt_client> {
    template <class Visitor> static void visit(kelmora_tr369_mqtt_client &client, Visitor &visitor)
    {
        visitor.chain(client.subscription);
    }
};

template <> struct Owned<kelmora_traceroute> {
    template <class Visitor> static void visit(kelmora_traceroute &trace, Visitor &visitor)
    {
        visitor.chain(trace.hop_list);
    }
};

template <> struct Owned<kelmora_wlan_access_control> {
    template <class Visitor> static void visit(kelmora_wlan_access_control &control, Visitor &visitor)
    {
        visitor.chain(control.mac_list);
    }
};

} // namespace kelmora_host

#endif
