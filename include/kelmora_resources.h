/*
 * The resources: one row each, in the order of their numbers.
 *
 * A row is (number, name, group, directions). The number is what the host files the pair of translators under and
 * never changes; the name is the resource's in every function, record and file name; the group is the folder below
 * translators/ that holds its unit and the header below records/ that holds its record. Directions are `both`, or
 * `to_only` or `from_only` where the other translator does nothing and returns 1.
 *
 * Use: #define a macro of these four arguments and hand it to KELMORA_RESOURCES.
 */
#ifndef KELMORA_RESOURCES_H
#define KELMORA_RESOURCES_H

/* clang-format off */
#define KELMORA_RESOURCES(ROW) \
    ROW(0, wireless, wireless, both) \
    ROW(1, session, device, both) \
    ROW(2, interface, wan_lan, both) \
    ROW(3, natportredirect, firewall, both) \
    ROW(4, wan, wan_lan, both) \
    ROW(5, radio, wireless, both) \
    ROW(6, lan, wan_lan, both) \
    ROW(7, upgrade_by_file, device, from_only) \
    ROW(8, factory_default, device, both) \
    ROW(9, pppoe, wan_lan, both) \
    ROW(10, remote_web_access, device, both) \
    ROW(11, dhcp_server, wan_lan, both) \
    ROW(12, telnet, device, from_only) \
    ROW(13, mp_info, device, both) \
    ROW(14, action, device, both) \
    ROW(15, user, device, both) \
    ROW(16, device, device, both) \
    ROW(17, status, device, to_only) \
    ROW(18, interface_statistics, wan_lan, both) \
    ROW(19, connected_device, wan_lan, to_only) \
    ROW(20, site_survey, wireless, to_only) \
    ROW(21, system, device, both) \
    ROW(22, easymesh, wireless, both) \
    ROW(23, ping, diagnostics, both) \
    ROW(24, qos, qos, both) \
    ROW(25, qos_rule, qos, both) \
    ROW(26, filter, firewall, both) \
    ROW(27, limits, device, both) \
    ROW(28, dhcp_static_lease, wan_lan, both) \
    ROW(29, daily_reboot, device, both) \
    ROW(30, datetime, device, both) \
    ROW(31, traceroute, diagnostics, both) \
    ROW(32, wan_detect, wan_lan, both) \
    ROW(33, iptables, firewall, both) \
    ROW(34, mirroring, routing, both) \
    ROW(35, pon_stats, pon, to_only) \
    ROW(36, pon_settings, pon, both) \
    ROW(37, pon_nodes, pon, to_only) \
    ROW(38, pon_counters, pon, to_only) \
    ROW(39, syslog, device, both) \
    ROW(40, gpon_status, pon, to_only) \
    ROW(41, gem_port_stats, pon, to_only) \
    ROW(42, pon_status, pon, to_only) \
    ROW(43, http_request, diagnostics, both) \
    ROW(44, loop_back_detect, routing, both) \
    ROW(45, epon_llid_status, pon, to_only) \
    ROW(46, ipv6_radvd, ipv6, both) \
    ROW(47, wan_lan_list, wan_lan, both) \
    ROW(48, wan_service_type, wan_lan, both) \
    ROW(49, ipv6_proxy_mld, ipv6, both) \
    ROW(50, loopback_detect_status, routing, both) \
    ROW(51, acl_capability, firewall, both) \
    ROW(52, acl_config, firewall, both) \
    ROW(53, tr069_config, remote_mgmt, both) \
    ROW(54, lan_port_status, wan_lan, to_only) \
    ROW(55, firewall_domain_blocking, firewall, both) \
    ROW(56, firewall_url_blocking, firewall, both) \
    ROW(57, firewall_mac_filtering, firewall, both) \
    ROW(58, firewall_ip_port_filtering, firewall, both) \
    ROW(59, firewall_alg, firewall, both) \
    ROW(60, tr069_inform, remote_mgmt, to_only) \
    ROW(61, firewall_port_forwarding_enable, firewall, both) \
    ROW(62, igmp_proxy, routing, both) \
    ROW(63, firewall_port_forwarding_table, firewall, both) \
    ROW(64, backup_restore, device, both) \
    ROW(65, neighbour_hosts, ipv6, both) \
    ROW(66, ipv6_acl_capability, firewall, both) \
    ROW(67, ipv6_acl_config, firewall, both) \
    ROW(68, ipv6_dhcp, ipv6, both) \
    ROW(69, static_routing, routing, both) \
    ROW(70, qos_policy, qos, both) \
    ROW(71, qos_available_dscp, qos, to_only) \
    ROW(72, qos_classification, qos, both) \
    ROW(73, ipv6_static_route, ipv6, both) \
    ROW(74, global_routing, routing, to_only) \
    ROW(75, ddns, firewall, both) \
    ROW(76, qos_traffic_control, qos, both) \
    ROW(77, bridging, wan_lan, both) \
    ROW(78, change_to_firmware_version, device, both) \
    ROW(79, igmp_mld_snooping, routing, both) \
    ROW(80, ipv6_static_route_list, ipv6, to_only) \
    ROW(81, rip_enable, routing, both) \
    ROW(82, rip_config, routing, both) \
    ROW(83, ipv6_ip_port_filter, firewall, both) \
    ROW(84, ipv6_ip_port_filter_default_rule, firewall, both) \
    ROW(85, ipv6_dhcp_server, ipv6, both) \
    ROW(86, ipv6_dhcp_relay, ipv6, both) \
    ROW(87, ipv6_dhcp_client, ipv6, to_only) \
    ROW(88, dhcp_client, wan_lan, to_only) \
    ROW(89, automatic_maintenance, device, both) \
    ROW(90, parental_control, firewall, both) \
    ROW(91, custom_default_config, device, both) \
    ROW(92, ipv6_prefix_delegation, ipv6, both) \
    ROW(93, wlan_access_control, wireless, both) \
    ROW(94, limited_user_permissions, device, to_only) \
    ROW(95, tr369_mqtt_client, remote_mgmt, both) \
    ROW(96, tr369_local_agent_mtp, remote_mgmt, both) \
    ROW(97, tr369_local_agent_controller, remote_mgmt, both)
/* clang-format on */

/* How many resources there are, as a constant of type int that #if takes too; their numbers are 0 to one less. Inside
 * a row, where the list cannot be used a second time, it cannot be used either. */
#define KELMORA_RESOURCE_COUNT (0 KELMORA_RESOURCES(KELMORA_COUNT_ROW))
#define KELMORA_COUNT_ROW(number, name, group, directions) +1

#endif
