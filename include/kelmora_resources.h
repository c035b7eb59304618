/*
 * The resources: one row each, in the order of their numbers.
 *
 * A row is (number, name, group, directions). The number is what the host files the pair of translators under and
 * never changes; the name is the resource's in every function, record and file name; the group is the folder below
 * translators/ that holds its unit and the header below records/ that holds its record. Directions are `both`, or
 * `to_only` or `from_only` where the other translator does nothing and returns 1.
 *
 * SERVED rows have their unit. PENDING rows are registered with a pair that rejects what is written with "not
 * supported" and answers a read with 0 and the empty document.
 *
 * Use: #define a macro of four arguments for either kind of row and hand both to KELMORA_RESOURCES.
 */
#ifndef KELMORA_RESOURCES_H
#define KELMORA_RESOURCES_H

/* clang-format off */
#define KELMORA_RESOURCES(SERVED, PENDING) \
    SERVED(0, wireless, wireless, both) \
    SERVED(1, session, device, both) \
    SERVED(2, interface, wan_lan, both) \
    SERVED(3, natportredirect, firewall, both) \
    SERVED(4, wan, wan_lan, both) \
    SERVED(5, radio, wireless, both) \
    SERVED(6, lan, wan_lan, both) \
    SERVED(7, upgrade_by_file, device, from_only) \
    SERVED(8, factory_default, device, both) \
    SERVED(9, pppoe, wan_lan, both) \
    SERVED(10, remote_web_access, device, both) \
    SERVED(11, dhcp_server, wan_lan, both) \
    SERVED(12, telnet, device, from_only) \
    SERVED(13, mp_info, device, both) \
    SERVED(14, action, device, both) \
    SERVED(15, user, device, both) \
    SERVED(16, device, device, both) \
    SERVED(17, status, device, to_only) \
    SERVED(18, interface_statistics, wan_lan, both) \
    SERVED(19, connected_device, wan_lan, both) \
    SERVED(20, site_survey, wireless, to_only) \
    SERVED(21, system, device, both) \
    SERVED(22, easymesh, wireless, both) \
    SERVED(23, ping, diagnostics, both) \
    SERVED(24, qos, qos, both) \
    SERVED(25, qos_rule, qos, both) \
    PENDING(26, filter, firewall, both) \
    SERVED(27, limits, device, both) \
    SERVED(28, dhcp_static_lease, wan_lan, both) \
    SERVED(29, daily_reboot, device, both) \
    SERVED(30, datetime, device, both) \
    SERVED(31, traceroute, diagnostics, both) \
    SERVED(32, wan_detect, wan_lan, both) \
    PENDING(33, iptables, firewall, both) \
    SERVED(34, mirroring, routing, both) \
    SERVED(35, pon_stats, pon, to_only) \
    SERVED(36, pon_settings, pon, both) \
    SERVED(37, pon_nodes, pon, to_only) \
    SERVED(38, pon_counters, pon, to_only) \
    SERVED(39, syslog, device, both) \
    SERVED(40, gpon_status, pon, to_only) \
    SERVED(41, gem_port_stats, pon, to_only) \
    SERVED(42, pon_status, pon, to_only) \
    SERVED(43, http_request, diagnostics, both) \
    SERVED(44, loop_back_detect, routing, both) \
    SERVED(45, epon_llid_status, pon, to_only) \
    SERVED(46, ipv6_radvd, ipv6, both) \
    SERVED(47, wan_lan_list, wan_lan, both) \
    SERVED(48, wan_service_type, wan_lan, both) \
    SERVED(49, ipv6_proxy_mld, ipv6, both) \
    SERVED(50, loopback_detect_status, routing, both) \
    SERVED(51, acl_capability, firewall, both) \
    SERVED(52, acl_config, firewall, both) \
    SERVED(53, tr069_config, remote_mgmt, both) \
    SERVED(54, lan_port_status, wan_lan, to_only) \
    SERVED(55, firewall_domain_blocking, firewall, both) \
    SERVED(56, firewall_url_blocking, firewall, both) \
    PENDING(57, firewall_mac_filtering, firewall, both) \
    PENDING(58, firewall_ip_port_filtering, firewall, both) \
    PENDING(59, firewall_alg, firewall, both) \
    SERVED(60, tr069_inform, remote_mgmt, to_only) \
    SERVED(61, firewall_port_forwarding_enable, firewall, both) \
    SERVED(62, igmp_proxy, routing, both) \
    SERVED(63, firewall_port_forwarding_table, firewall, both) \
    SERVED(64, backup_restore, device, both) \
    SERVED(65, neighbour_hosts, ipv6, both) \
    SERVED(66, ipv6_acl_capability, firewall, both) \
    SERVED(67, ipv6_acl_config, firewall, both) \
    SERVED(68, ipv6_dhcp, ipv6, both) \
    SERVED(69, static_routing, routing, both) \
    SERVED(70, qos_policy, qos, both) \
    SERVED(71, qos_available_dscp, qos, to_only) \
    SERVED(72, qos_classification, qos, both) \
    SERVED(73, ipv6_static_route, ipv6, both) \
    SERVED(74, global_routing, routing, to_only) \
    PENDING(75, ddns, firewall, both) \
    SERVED(76, qos_traffic_control, qos, both) \
    SERVED(77, bridging, wan_lan, both) \
    SERVED(78, change_to_firmware_version, device, both) \
    SERVED(79, igmp_mld_snooping, routing, both) \
    SERVED(80, ipv6_static_route_list, ipv6, to_only) \
    SERVED(81, rip_enable, routing, both) \
    SERVED(82, rip_config, routing, both) \
    PENDING(83, ipv6_ip_port_filter, firewall, both) \
    PENDING(84, ipv6_ip_port_filter_default_rule, firewall, both) \
    SERVED(85, ipv6_dhcp_server, ipv6, both) \
    SERVED(86, ipv6_dhcp_relay, ipv6, both) \
    SERVED(87, ipv6_dhcp_client, ipv6, to_only) \
    SERVED(88, dhcp_client, wan_lan, to_only) \
    SERVED(89, automatic_maintenance, device, both) \
    SERVED(90, parental_control, firewall, both) \
    SERVED(91, custom_default_config, device, both) \
    SERVED(92, ipv6_prefix_delegation, ipv6, both) \
    SERVED(93, wlan_access_control, wireless, both) \
    SERVED(94, limited_user_permissions, device, to_only) \
    SERVED(95, tr369_mqtt_client, remote_mgmt, both) \
    SERVED(96, tr369_local_agent_mtp, remote_mgmt, both) \
    SERVED(97, tr369_local_agent_controller, remote_mgmt, both)
/* clang-format on */

/* How many resources there are; their numbers are 0 to one less. */
#define KELMORA_RESOURCE_COUNT 98

#endif
