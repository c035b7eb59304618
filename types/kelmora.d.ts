// The documents of libkelmora_json's resources. Made from the plug-in by `kelmora-host types`, not by hand.
//
// Output: a record as it is written. Strings that are not UTF-8 and reals that are not finite leave their key
// out, whatever the type says. Input: a document as it is taken; keys beyond those that are named here are
// ignored.

/** What `wireless` writes of a record. */
export interface WirelessOutput {
  /** Operating mode code; 0..4294967295. */
  mode: number;
  /** Network switched on. */
  enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** IEEE 802.11 standard code; 0..4294967295. */
  ieee_std: number;
  /** Host interface that the network belongs to; up to 128 bytes. */
  interfaceID: string;
  /** Radio that carries it; up to 128 bytes. */
  radioID: string;
  /** SSID is broadcast. */
  broadcast: boolean;
  /** Network name; up to 32 bytes. */
  ssid: string;
  /** BSSID, six colon-separated hexadecimal pairs; read-only; up to 17 bytes. */
  bssid: string;
  /** Cipher code; 0..4294967295. */
  cipher: number;
  /** Security (authentication) code; 0..4294967295. */
  crypto: number;
  /** Pass phrase, in clear; up to 63 bytes. */
  key: string;
  /** WPS on. */
  wps: boolean;
  /** The network belongs to the root (main) device. */
  isRoot: boolean;
  /** RSSI threshold in client mode, may be negative; -2147483648..2147483647. */
  client_mode_rssi: number;
  /** Network is a guest network. */
  guest_network: boolean;
}

/** What `wireless` takes. */
export interface WirelessInput {
  /** Host interface that the network belongs to; up to 128 bytes. */
  interfaceID: string;
  /** Radio that carries it; up to 128 bytes. */
  radioID: string;
  /** SSID is broadcast. */
  broadcast: boolean;
  /** Network name; up to 32 bytes. */
  ssid: string;
  /** Cipher code; 0..4294967295. */
  cipher: number;
  /** Security (authentication) code; 0..4294967295. */
  crypto: number;
  /** Operating mode code; 0..4294967295. */
  mode?: number;
  /** Pass phrase, in clear; up to 63 bytes. */
  key: string;
  /** WPS on. */
  wps: boolean;
  /** Network switched on. */
  enabled: boolean;
  /** The network belongs to the root (main) device. */
  isRoot?: boolean;
  /** RSSI threshold in client mode, may be negative; -2147483648..2147483647. */
  client_mode_rssi?: number;
  /** IEEE 802.11 standard code; 0..4294967295. */
  ieee_std?: number;
  /** Network is a guest network. */
  guest_network?: boolean;
}

/** What `session` writes of a record. */
export interface SessionOutput {
  /** Account name; up to 33 bytes. */
  username: string;
}

/** What `session` takes. */
export interface SessionInput {
  /** Account name; up to 33 bytes. */
  username?: string;
  /** Password, in clear; never written out; up to 33 bytes. */
  password?: string;
  /** Session token; never written out; up to 129 bytes. */
  token?: string;
}

/** What `interface` writes of a record. */
export interface InterfaceOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** IPv4 address, dotted decimal; up to 16 bytes. */
  ip4: string;
  /** Number of IPv6 addresses, as the host counted them; -2147483648..2147483647. */
  ip6_count: number;
  /** Chain of IPv6 addresses, NULL when empty. */
  ip6_list: Array<string>;
  /** MAC address; up to 17 bytes. */
  mac: string;
  /** MTU in bytes; 0..4294967295. */
  mtu: number;
  /** IPv4 netmask, dotted decimal; up to 16 bytes. */
  netmask: string;
  /** The interface is up; read-only. */
  running: boolean;
}

/** What `interface` takes. */
export interface InterfaceInput {
  /** IPv4 address, dotted decimal; up to 16 bytes. */
  ip4: string;
  /** MAC address; up to 17 bytes. */
  mac: string;
  /** IPv4 netmask, dotted decimal; up to 16 bytes. */
  netmask: string;
  /** MTU in bytes; 0..4294967295. */
  mtu: number;
  /** Chain of IPv6 addresses, NULL when empty; the first that was there stays, the new ones go behind it, the others are let go. */
  ip6_list?: Array<string>;
}

/** What `natportredirect` writes of a record. */
export interface NatportredirectOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Free text; up to 31 bytes. */
  description: string;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  externalPort: {
    /** First external port; 0..4294967295. */
    start: number;
    /** Last external port; 0..4294967295. */
    end: number;
  };
  /** IPv4 address in the LAN, dotted decimal; up to 16 bytes. */
  internalIP: string;
  internalPort: {
    /** First internal port; 0..4294967295. */
    start: number;
    /** Last internal port; 0..4294967295. */
    end: number;
  };
}

/** What `natportredirect` takes. */
export interface NatportredirectInput {
  /** Free text; up to 31 bytes. */
  description?: string;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  externalPort: {
    /** First external port; 0..4294967295. */
    start: number;
    /** Last external port; 0..4294967295. */
    end: number;
  };
  internalPort: {
    /** First internal port; 0..4294967295. */
    start: number;
    /** Last internal port; 0..4294967295. */
    end: number;
  };
  /** IPv4 address in the LAN, dotted decimal; up to 16 bytes. */
  internalIP: string;
}

/** What `wan` writes of a record. */
export interface WanOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the WAN interface; up to 19 bytes. */
  interfaceID: string;
  /** IPv4 addressing mode code; 0..4294967295. */
  mode: number;
  /** IPv6 addressing mode code; 0..4294967295. */
  address_mode_v6: number;
  /** IPv4 default gateway, dotted decimal; up to 16 bytes. */
  gateway: string;
  /** IPv6 default gateway; up to 45 bytes. */
  gateway_v6: string;
  dns_v4: {
    /** IPv4 DNS servers are learnt automatically. */
    automatic: boolean;
    /** First IPv4 DNS server; up to 45 bytes. */
    dns1: string;
    /** Second IPv4 DNS server; up to 45 bytes. */
    dns2: string;
    /** Third IPv4 DNS server; up to 45 bytes. */
    dns3: string;
  };
  dns_v6: {
    /** IPv6 DNS servers are learnt automatically. */
    automatic: boolean;
    /** First IPv6 DNS server; up to 45 bytes. */
    dns1: string;
    /** Second IPv6 DNS server; up to 45 bytes. */
    dns2: string;
    /** Third IPv6 DNS server; up to 45 bytes. */
    dns3: string;
  };
  /** MAC address cloned onto the WAN port; up to 17 bytes. */
  clonedMac: string;
  /** Address translation on this connection. */
  napt_enable: boolean;
  /** The connection is VLAN-tagged. */
  vlan_enable: boolean;
  /** IPv6 prefix handling on this connection. */
  prefix_enable: boolean;
  /** VLAN identifier; 0..65535 or empty. */
  vlanID: number | string;
  /** Multicast VLAN identifier; 0..65535. */
  multicast_vlanID: number;
  /** The connection was configured through OMCI. */
  omci_configured: boolean;
  /** Connection protocol code; 0..4294967295. */
  protocol: number;
}

/** What `wan` takes. */
export interface WanInput {
  /** Name of the WAN interface; up to 19 bytes. */
  interfaceID: string;
  /** IPv4 addressing mode code; 0..4294967295. */
  mode: number;
  /** IPv6 addressing mode code; 0..4294967295. */
  address_mode_v6?: number;
  /** IPv4 default gateway, dotted decimal; up to 16 bytes. */
  gateway?: string;
  /** IPv6 default gateway; up to 45 bytes. */
  gateway_v6?: string;
  dns_v4: {
    /** IPv4 DNS servers are learnt automatically. */
    automatic: boolean;
    /** First IPv4 DNS server; up to 45 bytes. */
    dns1?: string;
    /** Second IPv4 DNS server; up to 45 bytes. */
    dns2?: string;
    /** Third IPv4 DNS server; up to 45 bytes. */
    dns3?: string;
  };
  dns_v6?: {
    /** IPv6 DNS servers are learnt automatically. */
    automatic: boolean;
    /** First IPv6 DNS server; up to 45 bytes. */
    dns1?: string;
    /** Second IPv6 DNS server; up to 45 bytes. */
    dns2?: string;
    /** Third IPv6 DNS server; up to 45 bytes. */
    dns3?: string;
  };
  /** MAC address cloned onto the WAN port; up to 17 bytes. */
  clonedMac?: string;
  /** Address translation on this connection. */
  napt_enable?: boolean;
  /** The connection is VLAN-tagged. */
  vlan_enable?: boolean;
  /** IPv6 prefix handling on this connection. */
  prefix_enable?: boolean;
  /** VLAN identifier; 0..65535. */
  vlanID?: number;
  /** Multicast VLAN identifier; 0..65535. */
  multicast_vlanID?: number;
  /** The connection was configured through OMCI. */
  omci_configured?: boolean;
  /** Connection protocol code; 0..4294967295. */
  protocol?: number;
}

/** What `radio` writes of a record. */
export interface RadioOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Radio on. */
  enabled: boolean;
  /** Operating mode code; 0..4294967295. */
  opMode: number;
  /** Band or frequency code; 0..4294967295. */
  frequency: number;
  /** Channel set by the user; 0..4294967295. */
  configuredChannel: number;
  /** Channel in use; 0..4294967295. */
  channel: number;
  /** Extension-channel code; 0..4294967295. */
  extension: number;
  /** Channel-width code; 0..4294967295. */
  bandwidth: number;
  /** MU-MIMO on. */
  mu_mimo: boolean;
  /** Beamforming on. */
  beamforming: boolean;
  /** OFDMA on. */
  ofdma: boolean;
  /** Target wake time on. */
  twt: boolean;
  /** Transmit power setting; 0..4294967295. */
  power: number;
}

/** What `radio` takes. */
export interface RadioInput {
  /** Radio on. */
  enabled: boolean;
  /** Operating mode code; 0..4294967295. */
  opMode: number;
  /** Band or frequency code; 0..4294967295. */
  frequency: number;
  /** Channel set by the user; 0..4294967295. */
  configuredChannel: number;
  /** Channel in use; 0..4294967295. */
  channel: number;
  /** Extension-channel code; 0..4294967295. */
  extension: number;
  /** Channel-width code; 0..4294967295. */
  bandwidth: number;
  /** MU-MIMO on. */
  mu_mimo?: boolean;
  /** Beamforming on. */
  beamforming?: boolean;
  /** OFDMA on. */
  ofdma?: boolean;
  /** Target wake time on. */
  twt?: boolean;
  /** Transmit power setting; 0..4294967295. */
  power: number;
}

/** What `lan` writes of a record. */
export interface LanOutput {
  /** Name of the interface; up to 127 bytes. */
  interfaceID: string;
  /** Its IPv4 address, the gateway of the LAN's hosts, dotted decimal; up to 16 bytes. */
  gateway: string;
}

/** What `lan` takes. */
export interface LanInput {
  /** Name of the interface; up to 127 bytes. */
  interfaceID: string;
  /** Its IPv4 address, the gateway of the LAN's hosts, dotted decimal; up to 16 bytes. */
  gateway?: string;
}

/** What `factory_default` writes of a record. */
export interface FactoryDefaultOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** How long the button was or must be held, in the host's unit; -2147483648..2147483647. */
  pressedTime: number;
}

/** What `factory_default` takes. */
export interface FactoryDefaultInput {
  /** How long the button was or must be held, in the host's unit; -2147483648..2147483647. */
  pressedTime: number;
}

/** What `pppoe` writes of a record. */
export interface PppoeOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the interface; up to 127 bytes. */
  interfaceID: string;
  /** User name; up to 129 bytes. */
  username: string;
  /** Password, in clear; up to 129 bytes. */
  password: string;
  /** Service name; up to 40 bytes. */
  service: string;
  /** Access concentrator name; up to 40 bytes. */
  server: string;
  /** MTU in bytes; 0..4294967295. */
  mtu: number;
}

/** What `pppoe` takes. */
export interface PppoeInput {
  /** Name of the interface; up to 127 bytes. */
  interfaceID?: string;
  /** User name; up to 129 bytes. */
  username: string;
  /** Password, in clear; up to 129 bytes. */
  password: string;
  /** Service name; up to 40 bytes. */
  service?: string;
  /** Access concentrator name; up to 40 bytes. */
  server?: string;
  /** MTU in bytes; 0..4294967295. */
  mtu: number;
}

/** What `remote_web_access` writes of a record. */
export interface RemoteWebAccessOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Management from the WAN allowed. */
  enabled: boolean;
  /** Port of the management web server on the WAN side; 0..4294967295. */
  port: number;
  /** Only a range of source addresses is allowed. */
  enable_ip_range: boolean;
  /** First allowed IPv4 address, dotted decimal; up to 16 bytes. */
  rangeStart: string;
  /** Last allowed IPv4 address, dotted decimal; up to 16 bytes. */
  rangeEnd: string;
  /** Remote access over IPv6 allowed. */
  ipv6Enabled: boolean;
  /** The device answers ping on the WAN side. */
  pingWan: boolean;
}

/** What `remote_web_access` takes. */
export interface RemoteWebAccessInput {
  /** Management from the WAN allowed. */
  enabled: boolean;
  /** Port of the management web server on the WAN side; 0..4294967295. */
  port: number;
  /** Only a range of source addresses is allowed. */
  enable_ip_range?: boolean;
  /** First allowed IPv4 address, dotted decimal; up to 16 bytes; required: when enable_ip_range is absent and the stored enable_ip_range is not 0 or enable_ip_range is true. */
  rangeStart?: string;
  /** Last allowed IPv4 address, dotted decimal; up to 16 bytes; required: when enable_ip_range is absent and the stored enable_ip_range is not 0 or enable_ip_range is true. */
  rangeEnd?: string;
  /** Remote access over IPv6 allowed. */
  ipv6Enabled?: boolean;
  /** The device answers ping on the WAN side. */
  pingWan?: boolean;
}

/** What `dhcp_server` writes of a record. */
export interface DhcpServerOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** The server runs. */
  enabled: boolean;
  /** Interface that it serves; up to 127 bytes. */
  interface: string;
  /** First address of the pool, dotted decimal; up to 16 bytes. */
  rangeStart: string;
  /** Last address of the pool, dotted decimal; up to 16 bytes. */
  rangeEnd: string;
  /** How DNS servers are handed out, code; 0..4294967295. */
  dns_mode: number;
  /** Lease time, in the host's unit; -2147483648..2147483647. */
  dhcpLeaseTime: number;
  /** First DNS server handed out, dotted decimal; up to 16 bytes. */
  dns1: string;
  /** Second DNS server handed out, dotted decimal; up to 16 bytes. */
  dns2: string;
  /** Chain of current leases, NULL when empty; read-only. */
  leases: Array<{
    /** MAC address of the client; up to 17 bytes. */
    mac: string;
    /** IPv4 address leased to it, dotted decimal; up to 16 bytes. */
    ip: string;
  }>;
}

/** What `dhcp_server` takes. */
export interface DhcpServerInput {
  /** The server runs. */
  enabled: boolean;
  /** Interface that it serves; up to 127 bytes. */
  interface: string;
  /** First address of the pool, dotted decimal; up to 16 bytes. */
  rangeStart: string;
  /** Last address of the pool, dotted decimal; up to 16 bytes. */
  rangeEnd: string;
  /** How DNS servers are handed out, code; 0..4294967295. */
  dns_mode?: number;
  /** Lease time, in the host's unit; -2147483648..2147483647. */
  dhcpLeaseTime?: number;
  /** First DNS server handed out, dotted decimal; up to 16 bytes. */
  dns1: string;
  /** Second DNS server handed out, dotted decimal; up to 16 bytes. */
  dns2: string;
}

/** What `telnet` takes. */
export interface TelnetInput {
  /** Password, in clear; up to 47 bytes. */
  password: string;
  /** Service on. */
  enable: boolean;
}

/** What `mp_info` writes of a record. */
export interface MpInfoOutput {
  /** Information to show; read-only; up to 126 bytes. */
  info: string;
}

/** What `mp_info` takes. */
export interface MpInfoInput {
  /** Password, in clear; write-only; up to 47 bytes. */
  password: string;
}

/** What `action` writes of a record. */
export interface ActionOutput {
  /** Action code; 0..4294967295. */
  actionID: number;
}

/** What `action` takes. */
export interface ActionInput {
  /** Action code; 0..4294967295. */
  actionID: number;
}

/** What `user` writes of a record. */
export interface UserOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Account name; up to 32 bytes. */
  username: string;
  /** Password, in clear; up to 32 bytes. */
  password: string;
  /** The account is privileged. */
  is_privileged: boolean;
}

/** What `user` takes. */
export interface UserInput {
  /** Account name; up to 32 bytes. */
  username: string;
  /** Password, in clear; up to 32 bytes. */
  password: string;
  /** The account is privileged. */
  is_privileged?: boolean;
}

/** What `device` writes of a record. */
export interface DeviceOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Model name; read-only; up to 63 bytes. */
  model: string;
  /** Time since start, in the host's unit; read-only; 0..4294967295. */
  uptime: number;
  /** Firmware version; read-only; up to 63 bytes. */
  fw_version: string;
  /** The set-up wizard is to be shown. */
  show_wizard: boolean;
  /** Login to the management front end is required. */
  login_enable: boolean;
  /** User-given device name; up to 63 bytes. */
  alias: string;
  /** LEDs on. */
  leds: boolean;
  /** The device may be managed. */
  is_manageable: boolean;
}

/** What `device` takes. */
export interface DeviceInput {
  /** The set-up wizard is to be shown. */
  show_wizard?: boolean;
  /** User-given device name; up to 63 bytes. */
  alias?: string;
  /** Login to the management front end is required. */
  login_enable?: boolean;
  /** LEDs on. */
  leds?: boolean;
  /** The device may be managed. */
  is_manageable?: boolean;
}

/** What `status` writes of a record. */
export interface StatusOutput {
  /** The internet is reachable. */
  has_internet: boolean;
  /** A cable is in the WAN port. */
  wan_cable: boolean;
  /** Connected to the remote-management cloud service. */
  tavoline_connected: boolean;
  /** A firmware update is available. */
  firmware_update: boolean;
  /** WPS state code; 0..4294967295. */
  wps_status: number;
}

/** What `interface_statistics` writes of a record. */
export interface InterfaceStatisticsOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the interface; up to 127 bytes. */
  interfaceID: string;
  /** Sent; 0..4294967295. */
  tx: number;
  /** Received; 0..4294967295. */
  rx: number;
  /** Unit code of the counters; -2147483648..2147483647. */
  unity_size: number;
  /** Time of the counters, in the host's unit; 0..4294967295. */
  time: number;
}

/** What `interface_statistics` takes. */
export interface InterfaceStatisticsInput {
  /** Name of the interface; up to 127 bytes. */
  interfaceID: string;
  /** Sent; 0..4294967295; a number with a fraction or an exponent: 2 is read as 0, 2.0 as 2. */
  tx: number;
  /** Received; 0..4294967295; a number with a fraction or an exponent: 2 is read as 0, 2.0 as 2. */
  rx: number;
  /** Unit code of the counters; -2147483648..2147483647. */
  unity_size: number;
  /** Time of the counters, in the host's unit; 0..4294967295. */
  time: number;
}

/** What `connected_device` writes of a record. */
export interface ConnectedDeviceOutput {
  /** Radio band or frequency of a wireless device; 0..4294967295. */
  frequency: number;
  /** Host name; up to 254 bytes. */
  hostname: string;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** IPv4 address, dotted decimal; up to 16 bytes. */
  ip: string;
  /** Number of IPv6 addresses, as the host counted them; -2147483648..2147483647. */
  ip6_count: number;
  /** Chain of IPv6 addresses, NULL when empty. */
  ip6_list: Array<string>;
  /** Switch of 32 bits: the device is the DMZ host. */
  isDMZ: boolean;
  /** Switch of 32 bits: the address is a static lease. */
  isStaticIP: boolean;
  /** MAC address; up to 17 bytes. */
  mac: string;
  /** Interface or wireless network that it is attached to; up to 127 bytes. */
  network: string;
  /** Attachment mode code; 0..4294967295. */
  opMode: number;
  /** Bytes received; 0..4294967295. */
  rxBytes: number;
  /** Receive rate, in the host's unit. */
  rxRate: number;
  /** Signal level of a wireless device, may be negative; -2147483648..2147483647. */
  signalLevel: number;
  /** Connection time, in the host's unit; 0..4294967295. */
  time: number;
  /** Bytes sent; 0..4294967295. */
  txBytes: number;
  /** Transmit rate, in the host's unit. */
  txRate: number;
  /** Unit code of the byte counters; -2147483648..2147483647. */
  unitySize: number;
}

/** What `site_survey` writes of a record. */
export interface SiteSurveyOutput {
  /** Channel-width code; 0..4294967295. */
  bandwidth: number;
  /** Channel; -2147483648..2147483647. */
  channel: number;
  /** Cipher code; 0..4294967295. */
  cipher: number;
  /** Security code; 0..4294967295. */
  crypto: number;
  /** Extension-channel code; 0..4294967295. */
  extension: number;
  /** BSSID; up to 17 bytes. */
  mac: string;
  /** Operating mode code; 0..4294967295. */
  op_mode: number;
  /** Received signal level, may be negative; -2147483648..2147483647. */
  signal_level: number;
  /** Network name; up to 32 bytes. */
  ssid: string;
}

/** What `system` writes of a record. */
export interface SystemOutput {
  dmz: {
    /** DMZ on. */
    enabled: boolean;
    /** DMZ host's IPv4 address, dotted decimal; up to 16 bytes. */
    ip4: string;
  };
  /** The record's identifier; up to 128 bytes. */
  id: string;
  ipv6: {
    /** IPv6 on. */
    enabled: boolean;
  };
  /** The limited user account is enabled. */
  limited_user_enabled: boolean;
  /** Operation mode code; 0..4294967295. */
  operationMode: number;
  /** SIP ALG on. */
  sip_alg: boolean;
  /** UPnP on. */
  upnp: boolean;
  /** WAN interface that UPnP serves; up to 19 bytes. */
  upnp_wan_if: string;
}

/** What `system` takes. */
export interface SystemInput {
  /** UPnP on. */
  upnp: boolean;
  /** WAN interface that UPnP serves; up to 19 bytes. */
  upnp_wan_if?: string;
  /** Operation mode code; 0..4294967295. */
  operationMode?: number;
  /** The limited user account is enabled. */
  limited_user_enabled?: boolean;
  /** SIP ALG on. */
  sip_alg?: boolean;
  dmz?: {
    /** DMZ on; stored only with ip4. */
    enabled?: boolean;
    /** DMZ host's IPv4 address, dotted decimal; up to 16 bytes; stored only with enabled; looked at when enabled is there. */
    ip4?: string;
  };
  ipv6?: {
    /** IPv6 on. */
    enabled?: boolean;
  };
}

/** What `easymesh` writes of a record. */
export interface EasymeshOutput {
  /** Mesh on. */
  enabled: boolean;
  /** IPv4 address of the controller, dotted decimal; up to 16 bytes. */
  controllerIp: string;
  /** MAC address at the far end of the backhaul link; read-only; up to 17 bytes. */
  backhaul_mac: string;
  /** Its signal level, may be negative; read-only; -2147483648..2147483647. */
  backhaul_rssi: number;
  /** Role of this node, code; 0..4294967295. */
  type: number;
  /** Kind of backhaul link, code; 0..4294967295. */
  backhaul: number;
  /** Synchronisation state code; read-only; 0..4294967295. */
  syncing: number;
  /** Chain of neighbours, NULL when empty. */
  neighbors: Array<{
    /** Name of the node; up to 63 bytes. */
    name: string;
    /** Its model; up to 63 bytes. */
    model: string;
    /** It can be reached. */
    is_online: boolean;
    /** Its IPv4 address, dotted decimal; up to 16 bytes. */
    ip: string;
    /** Its MAC address; up to 17 bytes. */
    mac: string;
    /** Signal level, may be negative; -2147483648..2147483647. */
    rssi: number;
    /** Kind of backhaul link, code; 0..4294967295. */
    backhaul: number;
    /** Chain of its own neighbours, NULL when it has none; read-only. */
    neighbors: EasymeshOutputNeighbors[];
  }>;
}

export interface EasymeshOutputNeighbors {
  /** Name of the node; up to 63 bytes. */
  name: string;
  /** Its model; up to 63 bytes. */
  model: string;
  /** It can be reached. */
  is_online: boolean;
  /** Its IPv4 address, dotted decimal; up to 16 bytes. */
  ip: string;
  /** Its MAC address; up to 17 bytes. */
  mac: string;
  /** Signal level, may be negative; -2147483648..2147483647. */
  rssi: number;
  /** Kind of backhaul link, code; 0..4294967295. */
  backhaul: number;
  /** Chain of its own neighbours, NULL when it has none; read-only. */
  neighbors: EasymeshOutputNeighbors[];
}

/** What `easymesh` takes. */
export interface EasymeshInput {
  /** Mesh on. */
  enabled: boolean;
  /** IPv4 address of the controller, dotted decimal; up to 16 bytes. */
  controllerIp: string;
  /** Role of this node, code; 0..4294967295. */
  type: number;
  /** Kind of backhaul link, code; 0..4294967295. */
  backhaul: number;
  /** Must not be there. */
  syncing?: never;
  /** Chain of neighbours, NULL when empty; the new ones replace those that were there; an empty list changes nothing. */
  neighbors?: Array<{
    /** Its MAC address; up to 17 bytes. */
    mac: string;
    /** Name of the node; up to 63 bytes. */
    name?: string;
    /** Its model; up to 63 bytes. */
    model?: string;
    /** Must not be there. */
    neighbors?: never;
  }>;
}

/** What `ping` writes of a record. */
export interface PingOutput {
  /** Result: mean round-trip time. */
  avg_time: number;
  /** Longest time for the whole test, in seconds; -2147483648..2147483647. */
  deadline_seconds: number;
  /** Hop limit of the requests; -2147483648..2147483647. */
  hops_limit: number;
  /** Name or address to ping; up to 255 bytes. */
  host: string;
  /** Interface to send from; up to 19 bytes. */
  interfaceID: string;
  /** Result: address that the name stands for; up to 46 bytes. */
  ip: string;
  /** Over IPv6. */
  ip6: boolean;
  /** Result: longest round-trip time. */
  max_time: number;
  /** Result: shortest round-trip time. */
  min_time: number;
  /** Payload in bytes; -2147483648..2147483647. */
  packet_size: number;
  /** Result: lost requests, in percent. */
  packets_lost_percent: number;
  /** Requests to send; -2147483648..2147483647. */
  packets_qty: number;
  /** Result: replies received; -2147483648..2147483647. */
  packets_received: number;
  /** Result: requests sent; -2147483648..2147483647. */
  packets_sent: number;
  /** Result: TTL of the replies; -2147483648..2147483647. */
  ttl: number;
}

/** What `ping` takes. */
export interface PingInput {
  /** Name or address to ping; up to 255 bytes. */
  host: string;
  /** Payload in bytes; -2147483648..2147483647. */
  packet_size?: number;
  /** Requests to send; -2147483648..2147483647. */
  packets_qty?: number;
  /** Hop limit of the requests; -2147483648..2147483647. */
  hops_limit?: number;
  /** Longest time for the whole test, in seconds; -2147483648..2147483647. */
  deadline_seconds?: number;
  /** Over IPv6. */
  ip6?: boolean;
  /** Interface to send from; up to 19 bytes. */
  interfaceID?: string;
}

/** What `qos` writes of a record. */
export interface QosOutput {
  /** Quality of service on. */
  enabled: boolean;
  /** Downstream rate of the line; -2147483648..2147483647. */
  global_download: number;
  /** Upstream rate of the line; -2147483648..2147483647. */
  global_upload: number;
  /** The record's identifier; up to 128 bytes. */
  id: string;
}

/** What `qos` takes. */
export interface QosInput {
  /** Quality of service on. */
  enabled: boolean;
  /** Downstream rate of the line; -2147483648..2147483647. */
  global_download: number;
  /** Upstream rate of the line; -2147483648..2147483647. */
  global_upload: number;
}

/** What `qos_rule` writes of a record. */
export interface QosRuleOutput {
  /** Downstream rate; -2147483648..2147483647. */
  download: number;
  /** Rule active. */
  enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Rule mode code; 0..4294967295. */
  mode: number;
  /** Name of the rule; up to 63 bytes. */
  name: string;
  /** What the rule applies to; up to 199 bytes. */
  target: string;
  /** Rule type code; 0..4294967295. */
  type: number;
  /** Upstream rate; -2147483648..2147483647. */
  upload: number;
}

/** What `qos_rule` takes. */
export interface QosRuleInput {
  /** Rule active. */
  enabled: boolean;
  /** Name of the rule; up to 63 bytes. */
  name?: string;
  /** Rule type code; 0..4294967295. */
  type: number;
  /** Rule mode code; 0..4294967295. */
  mode: number;
  /** Downstream rate; -2147483648..2147483647. */
  download: number;
  /** Upstream rate; -2147483648..2147483647. */
  upload: number;
  /** What the rule applies to; up to 199 bytes. */
  target: string;
}

/** What `filter` writes of a record. */
export interface FilterOutput {
  /** Free text; up to 32 bytes. */
  description: string;
  /** Rule active. */
  enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Policy code; 0..4294967295. */
  policy: number;
  /** Last port, may be negative; -2147483648..2147483647. */
  port_end: number;
  /** First port, may be negative; -2147483648..2147483647. */
  port_start: number;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  /** What the rule applies to; up to 200 bytes. */
  target: string;
  /** Filter type code; 0..4294967295. */
  type: number;
}

/** What `filter` takes. */
export interface FilterInput {
  /** Rule active. */
  enabled: boolean;
  /** Free text; up to 32 bytes. */
  description?: string;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  /** Filter type code; 0..4294967295. */
  type: number;
  /** What the rule applies to; up to 200 bytes. */
  target: string;
  /** First port, may be negative; -2147483648..2147483647. */
  port_start?: number;
  /** Last port, may be negative; -2147483648..2147483647. */
  port_end?: number;
  /** Policy code; 0..4294967295. */
  policy?: number;
}

/** What `limits` writes of a record. */
export interface LimitsOutput {
  /** Maximum number of IP filter rules; -2147483648..2147483647. */
  filter_ip: number;
  /** Maximum number of MAC filter rules; -2147483648..2147483647. */
  filter_mac: number;
  /** Maximum number of port filter rules; -2147483648..2147483647. */
  filter_port: number;
  /** Maximum number of URL filter rules; -2147483648..2147483647. */
  filter_url: number;
  /** Maximum number of port-redirect rules; -2147483648..2147483647. */
  port_redirect: number;
  /** Maximum number of QoS rules; -2147483648..2147483647. */
  qos_rules: number;
  /** Maximum number of static DHCP leases; -2147483648..2147483647. */
  static_leases: number;
  /** Chain of limits of the radios, NULL when empty. */
  wifi_limits: Array<{
    /** Radio that it holds for; up to 6 bytes. */
    radio_id: string;
    /** The limit; -2147483648..2147483647. */
    value: number;
  }>;
}

/** What `limits` takes. */
export interface LimitsInput {
  /** Maximum number of port-redirect rules; -2147483648..2147483647. */
  port_redirect?: number;
  /** Maximum number of QoS rules; -2147483648..2147483647. */
  qos_rules?: number;
  /** Maximum number of static DHCP leases; -2147483648..2147483647. */
  static_leases?: number;
  /** Maximum number of IP filter rules; -2147483648..2147483647. */
  filter_ip?: number;
  /** Maximum number of MAC filter rules; -2147483648..2147483647. */
  filter_mac?: number;
  /** Maximum number of port filter rules; -2147483648..2147483647. */
  filter_port?: number;
  /** Maximum number of URL filter rules; -2147483648..2147483647. */
  filter_url?: number;
  /** Chain of limits of the radios, NULL when empty; each new one goes in front of those that were there. */
  wifi_limits?: Array<{
    /** Radio that it holds for; up to 6 bytes. */
    radio_id?: string;
    /** The limit; -2147483648..2147483647. */
    value?: number;
  }>;
}

/** What `dhcp_static_lease` writes of a record. */
export interface DhcpStaticLeaseOutput {
  /** Free text; up to 32 bytes. */
  description: string;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** IPv4 address reserved for it, dotted decimal; up to 16 bytes. */
  ip: string;
  /** MAC address of the client; up to 17 bytes. */
  mac: string;
}

/** What `dhcp_static_lease` takes. */
export interface DhcpStaticLeaseInput {
  /** MAC address of the client; up to 17 bytes. */
  mac: string;
  /** IPv4 address reserved for it, dotted decimal; up to 16 bytes. */
  ip: string;
  /** Free text; up to 32 bytes. */
  description?: string;
}

/** What `daily_reboot` writes of a record. */
export interface DailyRebootOutput {
  /** Postpone the reboot. */
  delay: boolean;
  /** Schedule on. */
  enable: boolean;
  /** Hour of the day; -2147483648..2147483647. */
  hour: number;
  /** Minute of the hour; -2147483648..2147483647. */
  minute: number;
}

/** What `daily_reboot` takes. */
export interface DailyRebootInput {
  /** Hour of the day; -2147483648..2147483647. */
  hour: number;
  /** Minute of the hour; -2147483648..2147483647. */
  minute: number;
  /** Schedule on. */
  enable: boolean;
  /** Postpone the reboot. */
  delay: boolean;
}

/** What `datetime` writes of a record. */
export interface DatetimeOutput {
  /** Current time, the host's count; read-only; 0..4294967295. */
  datetime: number;
  /** Daylight saving on. */
  dst_enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  ntp_server: {
    /** NTP servers are chosen automatically. */
    automatic: boolean;
    /** NTP client on. */
    enabled: boolean;
    /** First NTP server; up to 254 bytes. */
    ntp_server1: string;
    /** Second NTP server; up to 254 bytes. */
    ntp_server2: string;
  };
  /** Clock is synchronised; read-only. */
  synced: boolean;
  /** Identifier of the selected time zone; up to 7 bytes. */
  timezone: string;
  /** Chain of the zones offered, NULL when empty; read-only. */
  timezone_list: Array<{
    /** Number of the zone; 0..4294967295. */
    id: number;
    /** NUL-terminated string of any length, the host's; when the stored timezone_list[].region is not null. */
    region?: string;
  }>;
}

/** What `datetime` takes. */
export interface DatetimeInput {
  /** Identifier of the selected time zone; up to 7 bytes. */
  timezone?: string;
  /** Daylight saving on. */
  dst_enabled?: boolean;
  ntp_server?: {
    /** NTP client on. */
    enabled?: boolean;
    /** NTP servers are chosen automatically. */
    automatic?: boolean;
    /** First NTP server; up to 254 bytes; required: when automatic is not true. */
    ntp_server1?: string;
    /** Second NTP server; up to 254 bytes. */
    ntp_server2?: string;
  };
}

/** What `traceroute` writes of a record. */
export interface TracerouteOutput {
  /** Longest time for the whole test, in seconds; -2147483648..2147483647. */
  deadline_seconds: number;
  /** TTL of the first probes; -2147483648..2147483647. */
  first_ttl: number;
  /** Result: chain of hops, NULL when empty. */
  hop_list: Array<{
    /** Name of the router that answered; up to 255 bytes. */
    domain: string;
    /** Its number; -2147483648..2147483647. */
    hop: number;
    /** Address of the router that answered; up to 46 bytes. */
    ip: string;
    /** First probe: outcome code; 0..4294967295. */
    probe_1_output: number;
    /** Second probe: outcome code; 0..4294967295. */
    probe_2_output: number;
    /** Third probe: outcome code; 0..4294967295. */
    probe_3_output: number;
    /** First probe: round-trip time. */
    rtt_1: number;
    /** Second probe: round-trip time. */
    rtt_2: number;
    /** Third probe: round-trip time. */
    rtt_3: number;
  }>;
  /** Largest TTL to probe; -2147483648..2147483647. */
  hops_limit: number;
  /** Name or address to trace; up to 255 bytes. */
  host: string;
  /** Interface to send from; up to 19 bytes. */
  interfaceID: string;
  /** Result: address that the name stands for; up to 46 bytes. */
  ip: string;
  /** Over IPv6. */
  ip6: boolean;
  /** Length of a probe in bytes; -2147483648..2147483647. */
  packet_len: number;
}

/** What `traceroute` takes. */
export interface TracerouteInput {
  /** Name or address to trace; up to 255 bytes. */
  host: string;
  /** Length of a probe in bytes; -2147483648..2147483647. */
  packet_len?: number;
  /** TTL of the first probes; -2147483648..2147483647. */
  first_ttl?: number;
  /** Largest TTL to probe; -2147483648..2147483647. */
  hops_limit?: number;
  /** Longest time for the whole test, in seconds; -2147483648..2147483647. */
  deadline_seconds?: number;
  /** Over IPv6. */
  ip6?: boolean;
  /** Interface to send from; up to 19 bytes. */
  interfaceID?: string;
}

/** What `wan_detect` writes of a record. */
export interface WanDetectOutput {
  /** A DHCP server; 0..4294967295. */
  hasDHCP: number;
  /** A PPPoE server; 0..4294967295. */
  hasPPPoE: number;
  /** A static setup; 0..4294967295. */
  hasStatic: number;
}

/** What `wan_detect` takes. */
export interface WanDetectInput {
  /** A DHCP server; 0..4294967295. */
  hasDHCP?: number;
  /** A PPPoE server; 0..4294967295. */
  hasPPPoE?: number;
  /** A static setup; 0..4294967295. */
  hasStatic?: number;
}

/** What `iptables` writes of a record. */
export interface IptablesOutput {
  /** Chain code; 0..4294967295. */
  chain: number;
  destination: {
    /** Destination: interface name; up to 5 bytes. */
    interface: string;
    /** Destination: IPv4 or IPv6 address; up to 45 bytes. */
    ip: string;
    /** Destination: MAC address; up to 17 bytes. */
    mac: string;
    /** Destination: port, may be negative; -2147483648..2147483647. */
    port: number;
  };
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Address family code; 0..4294967295. */
  ip_protocol: number;
  /** Verdict code; 0..4294967295. */
  policy: number;
  /** Position in the chain, may be negative; -2147483648..2147483647. */
  position: number;
  /** Transport protocol code; 0..4294967295. */
  protocol: number;
  source: {
    /** Source: interface name; up to 5 bytes. */
    interface: string;
    /** Source: IPv4 or IPv6 address; up to 45 bytes. */
    ip: string;
    /** Source: MAC address; up to 17 bytes. */
    mac: string;
    /** Source: port, may be negative; -2147483648..2147483647. */
    port: number;
  };
  /** URL to match; up to 128 bytes. */
  url: string;
}

/** What `iptables` takes. */
export interface IptablesInput {
  /** Chain code; 0..4294967295. */
  chain: number;
  /** Verdict code; 0..4294967295. */
  policy: number;
  /** Address family code; 0..4294967295. */
  ip_protocol?: number;
  /** Position in the chain, may be negative; -2147483648..2147483647. */
  position?: number;
  /** Transport protocol code; 0..4294967295. */
  protocol?: number;
  source?: {
    /** Source: IPv4 or IPv6 address; up to 45 bytes. */
    ip?: string;
    /** Source: MAC address; up to 17 bytes. */
    mac?: string;
    /** Source: interface name; up to 5 bytes. */
    interface?: string;
    /** Source: port, may be negative; -2147483648..2147483647. */
    port?: number;
  };
  destination?: {
    /** Destination: IPv4 or IPv6 address; up to 45 bytes. */
    ip?: string;
    /** Destination: MAC address; up to 17 bytes. */
    mac?: string;
    /** Destination: interface name; up to 5 bytes. */
    interface?: string;
    /** Destination: port, may be negative; -2147483648..2147483647. */
    port?: number;
  };
  /** URL to match; up to 128 bytes. */
  url?: string;
}

/** What `mirroring` writes of a record. */
export interface MirroringOutput {
  /** Mirroring on. */
  enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Port that gets the copy, the host's number; 0..4294967295. */
  mirror_port: number;
  /** Port whose traffic is copied, the host's number; 0..4294967295. */
  mirrored_port: number;
}

/** What `mirroring` takes. */
export interface MirroringInput {
  /** Mirroring on. */
  enabled: boolean;
  /** Port whose traffic is copied, the host's number; 0..4294967295. */
  mirrored_port: number;
  /** Port that gets the copy, the host's number; 0..4294967295. */
  mirror_port: number;
}

/** What `pon_stats` writes of a record. */
export interface PonStatsOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  throughput: {
    /** Throughput sent; 0..4294967295. */
    tx: number;
    /** Throughput received; 0..4294967295. */
    rx: number;
  };
  pps: {
    /** Packets sent per second; 0..4294967295. */
    tx: number;
    /** Packets received per second; 0..4294967295. */
    rx: number;
  };
}

/** What `pon_settings` writes of a record. */
export interface PonSettingsOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** PON mode, as a string; up to 4 bytes. */
  mode: string;
  oam: {
    /** OAM: model identifier; up to 4 bytes. */
    model_id: string;
    /** OAM: vendor identifier; up to 16 bytes. */
    vendor_id: string;
    /** OAM: MAC address that identifies the unit, twelve characters at most; up to 12 bytes. */
    onu_id_mac: string;
    /** OAM: hardware version; up to 31 bytes. */
    hardware_version: string;
  };
  omci: {
    /** OMCI: model identifier; up to 63 bytes. */
    model_id: string;
    /** OMCI: vendor identifier; up to 4 bytes. */
    vendor_id: string;
    /** OMCI: serial number; up to 12 bytes. */
    serial_number: string;
    /** OMCI: hardware version; up to 31 bytes. */
    hardware_version: string;
    /** OMCI: interoperability profile of the line terminal, number; 0..255. */
    olt_profile: number;
  };
  security: {
    /** Logical identifier of the unit; up to 29 bytes. */
    loid: string;
    /** Its password, in clear; up to 36 bytes. */
    loid_password: string;
    /** PLOAM password, in clear; up to 75 bytes. */
    ploam_password: string;
  };
}

/** What `pon_settings` takes. */
export interface PonSettingsInput {
  /** PON mode, as a string; up to 4 bytes. */
  mode: string;
  oam: {
    /** OAM: model identifier; up to 4 bytes. */
    model_id?: string;
    /** OAM: vendor identifier; up to 16 bytes. */
    vendor_id?: string;
    /** OAM: MAC address that identifies the unit, twelve characters at most; up to 12 bytes. */
    onu_id_mac?: string;
    /** OAM: hardware version; up to 31 bytes. */
    hardware_version?: string;
  };
  omci: {
    /** OMCI: model identifier; up to 63 bytes. */
    model_id?: string;
    /** OMCI: vendor identifier; up to 4 bytes. */
    vendor_id?: string;
    /** OMCI: serial number; up to 12 bytes. */
    serial_number?: string;
    /** OMCI: hardware version; up to 31 bytes. */
    hardware_version?: string;
    /** OMCI: interoperability profile of the line terminal, number; 0..255. */
    olt_profile?: number;
  };
  security: {
    /** Logical identifier of the unit; up to 29 bytes. */
    loid?: string;
    /** Its password, in clear; up to 36 bytes. */
    loid_password?: string;
    /** PLOAM password, in clear; up to 75 bytes. */
    ploam_password?: string;
  };
}

/** What `pon_nodes` writes of a record. */
export interface PonNodesOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Its number; 0..255. */
  ponOnuId: number;
  /** Its model; up to 127 bytes. */
  model: string;
  /** Provisioning state code; 0..255. */
  gpon_provisioning_state: number;
}

/** What `pon_counters` writes of a record. */
export interface PonCountersOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Bytes sent; 0..4294967295. */
  tx_bytes: number;
  /** Bytes received; 0..4294967295. */
  rx_bytes: number;
  /** Packets sent; 0..4294967295. */
  tx_packets: number;
  /** Packets received; 0..4294967295. */
  rx_packets: number;
  /** Unicast packets sent; 0..4294967295. */
  tx_unicast_packets: number;
  /** Unicast packets received; 0..4294967295. */
  rx_unicast_packets: number;
  /** Multicast packets sent; 0..4294967295. */
  tx_multicast_packets: number;
  /** Multicast packets received; 0..4294967295. */
  rx_multicast_packets: number;
  /** Broadcast packets sent; 0..4294967295. */
  tx_broadcast_packets: number;
  /** Broadcast packets received; 0..4294967295. */
  rx_broadcast_packets: number;
  /** Pause frames sent; 0..4294967295. */
  tx_pause_packets: number;
  /** Pause frames received; 0..4294967295. */
  rx_pause_packets: number;
  /** Forward error correction errors; 0..4294967295. */
  fec_errors: number;
  /** Header error control errors; 0..4294967295. */
  hec_errors: number;
  /** Packets dropped; 0..4294967295. */
  dropped_packets: number;
}

/** What `syslog` writes of a record. */
export interface SyslogOutput {
  /** Forwarding on. */
  enabled: boolean;
  /** Its port; -2147483648..2147483647. */
  port: number;
  /** Remote log server; up to 254 bytes. */
  server: string;
  /** Lowest severity that is forwarded, code; 0..4294967295. */
  severity_level: number;
}

/** What `syslog` takes. */
export interface SyslogInput {
  /** Forwarding on. */
  enabled: boolean;
  /** Remote log server; up to 254 bytes. */
  server: string;
  /** Its port; -2147483648..2147483647. */
  port?: number;
  /** Lowest severity that is forwarded, code; 0..4294967295. */
  severity_level?: number;
}

/** What `gpon_status` writes of a record. */
export interface GponStatusOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Number of the activation state, 0 when unknown; up to 9 bytes. */
  onu_state_id: string;
  /** Number of the unit; 0..255. */
  onu_id: number;
  /** The state in words; up to 19 bytes. */
  onu_state_desc: string;
}

/** What `gem_port_stats` writes of a record. */
export interface GemPortStatsOutput {
  /** The record's identifier; up to 128 bytes. */
  flow_id: string;
  /** Packets; 0..4294967295. */
  pkt_count: number;
  /** Number of the port; 0..4294967295. */
  gemport_id: number;
  /** 1 upstream, 2 downstream; up to 10 bytes; when the stored gemport_direction is 1 or 2. */
  gemport_direction?: string;
}

/** What `pon_status` writes of a record. */
export interface PonStatusOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Bias current of the laser. */
  bias_current: number;
  /** Part number of the module; up to 63 bytes. */
  part_number: string;
  /** Power received. */
  rx_power: number;
  /** Temperature. */
  temperature: number;
  /** Vendor of the module; up to 63 bytes. */
  vendor_name: string;
  /** Power sent. */
  tx_power: number;
  /** Supply voltage. */
  voltage: number;
  /** PON mode, as a string; up to 4 bytes. */
  current_mode: string;
}

/** What `http_request` writes of a record. */
export interface HttpRequestOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Where to; up to 256 bytes. */
  dest: string;
  /** Inside a mesh session. */
  mesh_session: boolean;
  /** Method code; 0..4294967295. */
  method: number;
  /** Longest time for the answer, in the host's unit; -2147483648..2147483647. */
  timeout: number;
  /** Access token, in clear; up to 128 bytes. */
  token: string;
  /** Status of the answer; read-only; -2147483648..2147483647. */
  status: number;
  /** Body of the request, then of the answer: NUL-terminated, of any length, or NULL. */
  body: string;
}

/** What `http_request` takes. */
export interface HttpRequestInput {
  /** Where to; up to 256 bytes. */
  dest: string;
  /** Inside a mesh session. */
  mesh_session?: boolean;
  /** Method code; 0..4294967295. */
  method: number;
  /** Access token, in clear; up to 128 bytes. */
  token?: string;
  /** Longest time for the answer, in the host's unit; -2147483648..2147483647. */
  timeout?: number;
  /** Body of the request, then of the answer: NUL-terminated, of any length, or NULL; looked at when mesh_session is not true. */
  body?: object;
}

/** What `loop_back_detect` writes of a record. */
export interface LoopBackDetectOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Detection on. */
  enabled: boolean;
  /** Time between detection frames; 0..65535. */
  detection_interval: number;
  /** Time until a blocked port is opened again; 0..65535. */
  recovery_interval: number;
  /** EtherType of detection frames; up to 5 bytes. */
  frame_type: string;
  /** Used and unused slots in any order; up to 16. */
  vlan_list: Array<number>;
}

/** What `loop_back_detect` takes. */
export interface LoopBackDetectInput {
  /** Detection on. */
  enabled: boolean;
  /** Time between detection frames; 0..65535. */
  detection_interval: number;
  /** Time until a blocked port is opened again; 0..65535. */
  recovery_interval: number;
  /** EtherType of detection frames. */
  frame_type: string;
  /** Used and unused slots in any order; up to 16; the new ones are written over the first of those that were there; the others stay. */
  vlan_list: Array<number>;
}

/** What `epon_llid_status` writes of a record. */
export interface EponLlidStatusOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Number of the link; 0..65535. */
  llid_id: number;
  /** State code; 0..65535. */
  llid_id_status: number;
  /** The state in words; up to 127 bytes. */
  llid_id_status_desc: string;
}

/** What `ipv6_radvd` writes of a record. */
export interface Ipv6RadvdOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Longest time between unsolicited advertisements; 0..4294967295. */
  max_rtr_adv_interval: number;
  /** Shortest time between them; 0..4294967295. */
  min_rtr_adv_interval: number;
  /** The managed address flag. */
  adv_managed_flag: boolean;
  /** 0 or 1: the prefix is taken automatically. */
  ipv6_prefix_mode_auto: boolean;
  ipv6_prefix: {
    /** Prefix that is advertised; up to 45 bytes. */
    prefix: string;
    /** Its length in bits; 0..65535. */
    prefix_size: number;
    /** Its valid lifetime; 4294967295 is for ever; 0..4294967295. */
    adv_valid_lifetime: number;
    /** Its preferred lifetime; 0..4294967295. */
    adv_preferred_lifetime: number;
    /** The on-link flag. */
    adv_on_link: boolean;
    /** The autonomous configuration flag. */
    adv_autonomous: boolean;
    /** First recursive DNS server; up to 45 bytes. */
    rdnss1: string;
    /** Second recursive DNS server; up to 45 bytes. */
    rdnss2: string;
  };
  /** A unique local prefix is advertised. */
  enable_ula: boolean;
  ipv6_ula_settings: {
    /** That prefix, 16 characters at most; up to 16 bytes. */
    ula_prefix: string;
    /** Its length in bits; 0..4294967295. */
    ula_prefix_len: number;
    /** Its valid lifetime; 0..4294967295. */
    ula_valid_time: number;
    /** Its preferred lifetime; 0..4294967295. */
    ula_prefer_time: number;
  };
}

/** What `ipv6_radvd` takes. */
export interface Ipv6RadvdInput {
  /** Longest time between unsolicited advertisements; 0..4294967295. */
  max_rtr_adv_interval: number;
  /** Shortest time between them; 0..4294967295. */
  min_rtr_adv_interval: number;
  /** The managed address flag. */
  adv_managed_flag: boolean;
  /** 0 or 1: the prefix is taken automatically. */
  ipv6_prefix_mode_auto: boolean;
  ipv6_prefix: {
    /** Prefix that is advertised; up to 45 bytes. */
    prefix: string;
    /** Its length in bits; 0..65535. */
    prefix_size: number;
    /** Its valid lifetime; 4294967295 is for ever; 0..4294967295. */
    adv_valid_lifetime: number;
    /** Its preferred lifetime; 0..4294967295. */
    adv_preferred_lifetime: number;
    /** The on-link flag. */
    adv_on_link: boolean;
    /** The autonomous configuration flag. */
    adv_autonomous: boolean;
    /** First recursive DNS server; up to 45 bytes. */
    rdnss1: string;
    /** Second recursive DNS server; up to 45 bytes. */
    rdnss2: string;
  };
  /** A unique local prefix is advertised. */
  enable_ula: boolean;
  ipv6_ula_settings: {
    /** That prefix, 16 characters at most; up to 16 bytes. */
    ula_prefix: string;
    /** Its length in bits; 0..4294967295. */
    ula_prefix_len: number;
    /** Its valid lifetime; 0..4294967295. */
    ula_valid_time: number;
    /** Its preferred lifetime; 0..4294967295. */
    ula_prefer_time: number;
  };
}

/** What `wan_lan_list` writes of a record. */
export interface WanLanListOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Used and unused entries in any order; up to 16. */
  lan_list: Array<{
    /** Name of the LAN port; empty: the entry is unused; up to 9 bytes. */
    lan_id: string;
    /** Bound. */
    enabled: boolean;
  }>;
}

/** What `wan_lan_list` takes. */
export interface WanLanListInput {
  /** Used and unused entries in any order; up to 16; the new ones replace those that were there. */
  lan_list: Array<{
    /** Name of the LAN port; empty: the entry is unused; up to 9 bytes. */
    lan_id: string;
    /** Bound. */
    enabled: boolean;
  }>;
}

/** What `wan_service_type` writes of a record. */
export interface WanServiceTypeOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Video and other. */
  service_other_video: boolean;
  /** TR-069. */
  service_tr069: boolean;
  /** Internet access. */
  service_internet: boolean;
  /** Voice. */
  service_voice: boolean;
}

/** What `wan_service_type` takes. */
export interface WanServiceTypeInput {
  /** Video and other. */
  service_other_video: boolean;
  /** TR-069. */
  service_tr069: boolean;
  /** Internet access. */
  service_internet: boolean;
  /** Voice. */
  service_voice: boolean;
}

/** What `ipv6_proxy_mld` writes of a record. */
export interface Ipv6ProxyMldOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Time between general queries; 0..4294967295. */
  query_interval: number;
  /** Longest time for their answers; 0..4294967295. */
  query_response_interval: number;
  /** The same for queries to a group's last member; 0..4294967295. */
  response_interval_of_last_group_member: number;
  /** Robustness variable; -2147483648..2147483647. */
  robust_count: number;
}

/** What `ipv6_proxy_mld` takes. */
export interface Ipv6ProxyMldInput {
  /** Time between general queries; 0..4294967295. */
  query_interval: number;
  /** Longest time for their answers; 0..4294967295. */
  query_response_interval: number;
  /** The same for queries to a group's last member; 0..4294967295. */
  response_interval_of_last_group_member: number;
  /** Robustness variable; -2147483648..2147483647. */
  robust_count: number;
}

/** What `loopback_detect_status` writes of a record. */
export interface LoopbackDetectStatusOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the port; up to 4 bytes. */
  port: string;
  /** A loop was found. */
  loop_detect: boolean;
}

/** What `loopback_detect_status` takes. */
export interface LoopbackDetectStatusInput {
  /** Name of the port; up to 4 bytes. */
  port: string;
  /** A loop was found. */
  loop_detect: boolean;
}

/** What `acl_capability` writes of a record. */
export interface AclCapabilityOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Supported; key "acl_capability". */
  acl_capability: boolean;
  /** Names of the services, empty where unused; read-only; up to 8. */
  available_services: Array<string>;
}

/** What `acl_capability` takes. */
export interface AclCapabilityInput {
  /** Supported; key "acl_capability". */
  acl_capability: boolean;
}

/** What `acl_config` writes of a record. */
export interface AclConfigOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Interface that the rule applies to; up to 19 bytes. */
  interfaceID: string;
  /** First IPv4 address, dotted decimal; up to 16 bytes. */
  ip_start_addr: string;
  /** Last IPv4 address, dotted decimal; up to 16 bytes. */
  ip_end_addr: string;
  /** Rule active. */
  enable: boolean;
  /** All services reachable. */
  service_any: boolean;
  /** TFTP reachable. */
  service_tftp: boolean;
  /** Answers to ping. */
  service_ping: boolean;
  service_telnet: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_ftp: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_http: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_https: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_ssh: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
}

/** What `acl_config` takes. */
export interface AclConfigInput {
  /** Interface that the rule applies to; up to 19 bytes. */
  interfaceID: string;
  /** First IPv4 address, dotted decimal; up to 16 bytes. */
  ip_start_addr: string;
  /** Last IPv4 address, dotted decimal; up to 16 bytes. */
  ip_end_addr: string;
  /** Rule active. */
  enable: boolean;
  /** All services reachable. */
  service_any: boolean;
  /** TFTP reachable. */
  service_tftp: boolean;
  /** Answers to ping. */
  service_ping: boolean;
  service_telnet?: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_ftp: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_http: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_https: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
  service_ssh: {
    /** Reachable. */
    enable: boolean;
    /** Port that it listens on; 0..65535. */
    port: number;
  };
}

/** What `tr069_config` writes of a record. */
export interface Tr069ConfigOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Client on. */
  tr069_enable: boolean;
  /** Certificate for the connection to the server; up to 4096 bytes. */
  ca_cert: string;
  acs: {
    /** Auto-configuration server: URL; up to 256 bytes. */
    acs_url: string;
    /** Auto-configuration server: user name; up to 256 bytes. */
    acs_username: string;
    /** Auto-configuration server: password, in clear; up to 256 bytes. */
    acs_password: string;
    /** Periodic informs on. */
    tr069_inform: boolean;
    /** Time between periodic informs, in the host's unit; 0..4294967295. */
    tr069_interval: number;
  };
  connection: {
    /** Connection requests: accepted. */
    enabled: boolean;
    /** Connection requests: user name; up to 256 bytes. */
    conreq_name: string;
    /** Connection requests: password, in clear; up to 256 bytes. */
    conreq_pw: string;
    /** Connection requests: path of the URL; up to 256 bytes. */
    conreq_path: string;
    /** Connection requests: port; -2147483648..2147483647. */
    conreq_port: number;
  };
  stun: {
    /** STUN on. */
    enabled: boolean;
    /** Address of the STUN server; up to 256 bytes. */
    stun_server_addr: string;
    /** Port of the STUN server; -2147483648..2147483647. */
    stun_server_port: number;
  };
}

/** What `tr069_config` takes. */
export interface Tr069ConfigInput {
  /** Client on. */
  tr069_enable: boolean;
  acs?: {
    /** Auto-configuration server: URL; up to 256 bytes. */
    acs_url: string;
    /** Auto-configuration server: user name; up to 256 bytes. */
    acs_username: string;
    /** Auto-configuration server: password, in clear; up to 256 bytes. */
    acs_password: string;
    /** Periodic informs on. */
    tr069_inform: boolean;
    /** Time between periodic informs, in the host's unit; 0..4294967295. */
    tr069_interval: number;
  };
  connection?: {
    /** Connection requests: accepted. */
    enabled: boolean;
    /** Connection requests: user name; up to 256 bytes. */
    conreq_name: string;
    /** Connection requests: password, in clear; up to 256 bytes. */
    conreq_pw: string;
    /** Connection requests: path of the URL; up to 256 bytes. */
    conreq_path?: string;
    /** Connection requests: port; -2147483648..2147483647. */
    conreq_port: number;
  };
  stun?: {
    /** STUN on. */
    enabled: boolean;
    /** Address of the STUN server; up to 256 bytes. */
    stun_server_addr: string;
    /** Port of the STUN server; -2147483648..2147483647. */
    stun_server_port: number;
  };
  /** Certificate for the connection to the server; up to 4096 bytes. */
  ca_cert?: string;
}

/** What `lan_port_status` writes of a record. */
export interface LanPortStatusOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Status in words; up to 255 bytes. */
  status: string;
}

/** What `firewall_domain_blocking` writes of a record. */
export interface FirewallDomainBlockingOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Blocking on. */
  enable: boolean;
  /** Chain, NULL when empty. */
  domains: Array<string>;
}

/** What `firewall_domain_blocking` takes. */
export interface FirewallDomainBlockingInput {
  /** Blocking on. */
  enable: boolean;
  /** Chain, NULL when empty; the first that was there stays, the new ones go behind it, the others are let go. */
  domains: Array<string>;
}

/** What `firewall_url_blocking` writes of a record. */
export interface FirewallUrlBlockingOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Blocking on. */
  enable: boolean;
  /** Chain, NULL when empty. */
  urls: Array<string>;
  /** Chain, NULL when empty. */
  keywords: Array<string>;
}

/** What `firewall_url_blocking` takes. */
export interface FirewallUrlBlockingInput {
  /** Blocking on. */
  enable: boolean;
  /** Chain, NULL when empty; the first that was there stays, the new ones go behind it, the others are let go. */
  urls: Array<string>;
  /** Chain, NULL when empty; the first that was there stays, the new ones go behind it, the others are let go. */
  keywords: Array<string>;
}

/** What `firewall_mac_filtering` writes of a record. */
export interface FirewallMacFilteringOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Action code for incoming traffic that no rule matches; 0..4294967295. */
  incoming_default_act: number;
  /** The same for outgoing traffic; 0..4294967295. */
  outgoing_default_act: number;
  /** Chain of rules, NULL when empty. */
  entry: Array<{
    /** Direction code; 0..4294967295. */
    direction: number;
    /** MAC address; up to 17 bytes. */
    source_mac: string;
    /** MAC address; up to 17 bytes. */
    destination_mac: string;
    /** Action code; 0..4294967295. */
    rule_action: number;
  }>;
}

/** What `firewall_mac_filtering` takes. */
export interface FirewallMacFilteringInput {
  /** Action code for incoming traffic that no rule matches; 0..4294967295. */
  incoming_default_act: number;
  /** The same for outgoing traffic; 0..4294967295. */
  outgoing_default_act: number;
  /** Chain of rules, NULL when empty; the first that was there stays, the new ones go behind it, the others are let go. */
  entry: Array<{
    /** Direction code; 0..4294967295. */
    direction: number;
    /** MAC address; up to 17 bytes. */
    source_mac?: string;
    /** MAC address; up to 17 bytes. */
    destination_mac?: string;
    /** Action code; 0..4294967295. */
    rule_action: number;
  }>;
}

/** What `firewall_ip_port_filtering` writes of a record. */
export interface FirewallIpPortFilteringOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Action code for outgoing traffic that no rule matches; 0..4294967295. */
  outgoing_default_action: number;
  /** The same for incoming traffic; 0..4294967295. */
  incoming_default_action: number;
  /** Chain of rules, NULL when empty. */
  filter_lists: Array<{
    /** A switch here, not a code. */
    rule_action: boolean;
    /** IPv4 address, dotted decimal; up to 16 bytes. */
    source_ip_address: string;
    /** IPv4 address, dotted decimal; up to 16 bytes. */
    dest_ip_address: string;
    /** Mask length in bits; 0..255. */
    source_subnet_mask: number;
    /** Mask length in bits; 0..255. */
    dest_subnet_mask: number;
    /** First source port; 0..65535. */
    source_port_from: number;
    /** Last source port; 0..65535. */
    source_port_to: number;
    /** First destination port; 0..65535. */
    dest_port_from: number;
    /** Last destination port; 0..65535. */
    dest_port_to: number;
    /** Direction code; 0..4294967295. */
    direction: number;
    /** Protocol code; 0..4294967295. */
    protocol: number;
    /** Name or index of the interface, as a string; up to 19 bytes. */
    interface_index: string;
  }>;
}

/** What `firewall_ip_port_filtering` takes. */
export interface FirewallIpPortFilteringInput {
  /** Action code for outgoing traffic that no rule matches; 0..4294967295. */
  outgoing_default_action: number;
  /** The same for incoming traffic; 0..4294967295. */
  incoming_default_action: number;
  /** Chain of rules, NULL when empty; the first that was there stays, the new ones go behind it, the others are let go. */
  filter_lists: Array<{
    /** A switch here, not a code. */
    rule_action: boolean;
    /** IPv4 address, dotted decimal; up to 16 bytes. */
    source_ip_address?: string;
    /** IPv4 address, dotted decimal; up to 16 bytes. */
    dest_ip_address?: string;
    /** Mask length in bits; 0..255. */
    source_subnet_mask: number;
    /** Mask length in bits; 0..255. */
    dest_subnet_mask: number;
    /** First source port; 0..65535. */
    source_port_from: number;
    /** Last source port; 0..65535. */
    source_port_to: number;
    /** First destination port; 0..65535. */
    dest_port_from: number;
    /** Last destination port; 0..65535. */
    dest_port_to: number;
    /** Direction code; 0..4294967295. */
    direction: number;
    /** Protocol code; 0..4294967295. */
    protocol: number;
    /** Name or index of the interface, as a string; up to 19 bytes. */
    interface_index: string;
  }>;
}

/** What `firewall_alg` writes of a record. */
export interface FirewallAlgOutput {
  /** FTP. */
  ftp_enabled: boolean;
  /** H.323. */
  h323_enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** IPsec pass-through. */
  ip_sec_enabled: boolean;
  /** L2TP pass-through. */
  l2tp_enabled: boolean;
  /** PPTP pass-through. */
  pptp_enabled: boolean;
  /** RTSP. */
  rtsp_enabled: boolean;
  /** SIP. */
  sip_enabled: boolean;
  /** TFTP. */
  tftp_enabled: boolean;
}

/** What `firewall_alg` takes. */
export interface FirewallAlgInput {
  /** FTP. */
  ftp_enabled?: boolean;
  /** TFTP. */
  tftp_enabled?: boolean;
  /** H.323. */
  h323_enabled?: boolean;
  /** RTSP. */
  rtsp_enabled?: boolean;
  /** L2TP pass-through. */
  l2tp_enabled?: boolean;
  /** IPsec pass-through. */
  ip_sec_enabled?: boolean;
  /** SIP. */
  sip_enabled?: boolean;
  /** PPTP pass-through. */
  pptp_enabled?: boolean;
}

/** What `tr069_inform` writes of a record. */
export interface Tr069InformOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Result code; 0..4294967295. */
  status: number;
  /** Explanation: NUL-terminated, of any length, the host's, or NULL; when the stored cause is not null. */
  cause?: string;
}

/** What `firewall_port_forwarding_enable` writes of a record. */
export interface FirewallPortForwardingEnableOutput {
  /** Port forwarding on. */
  enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
}

/** What `firewall_port_forwarding_enable` takes. */
export interface FirewallPortForwardingEnableInput {
  /** Port forwarding on. */
  enabled?: boolean;
}

/** What `igmp_proxy` writes of a record. */
export interface IgmpProxyOutput {
  /** Multicast is forwarded. */
  allow_multicast: boolean;
  /** Time until a group is left; 0..4294967295. */
  group_leave_delay: number;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Queries to a group's last member; 0..4294967295. */
  last_member_query_count: number;
  /** Time between general queries; 0..4294967295. */
  query_interval: number;
  /** Longest time for their answers; 0..4294967295. */
  query_response_interval: number;
  /** Robustness variable; 0..4294967295. */
  robust_count: number;
}

/** What `igmp_proxy` takes. */
export interface IgmpProxyInput {
  /** Multicast is forwarded. */
  allow_multicast?: boolean;
  /** Robustness variable; 0..4294967295. */
  robust_count?: number;
  /** Queries to a group's last member; 0..4294967295. */
  last_member_query_count?: number;
  /** Time between general queries; 0..4294967295. */
  query_interval?: number;
  /** Longest time for their answers; 0..4294967295. */
  query_response_interval?: number;
  /** Time until a group is left; 0..4294967295. */
  group_leave_delay?: number;
}

/** What `firewall_port_forwarding_table` writes of a record. */
export interface FirewallPortForwardingTableOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Free text; up to 59 bytes. */
  comment: string;
  /** IPv4 address in the LAN, dotted decimal; up to 16 bytes. */
  local_ip: string;
  /** First port in the LAN; 0..65535. */
  local_port_from: number;
  /** Last port in the LAN; 0..65535. */
  local_port_to: number;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  /** IPv4 address outside, dotted decimal; up to 16 bytes. */
  remote_ip: string;
  /** First port outside; 0..65535. */
  remote_port_from: number;
  /** Last port outside; 0..65535. */
  remote_port_to: number;
  /** Interface that the rule applies to; up to 19 bytes. */
  interface: string;
}

/** What `firewall_port_forwarding_table` takes. */
export interface FirewallPortForwardingTableInput {
  /** Free text; up to 59 bytes. */
  comment: string;
  /** IPv4 address in the LAN, dotted decimal; up to 16 bytes. */
  local_ip: string;
  /** First port in the LAN; 0..65535. */
  local_port_from: number;
  /** Last port in the LAN; 0..65535. */
  local_port_to: number;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  /** IPv4 address outside, dotted decimal; up to 16 bytes. */
  remote_ip: string;
  /** First port outside; 0..65535. */
  remote_port_from: number;
  /** Last port outside; 0..65535. */
  remote_port_to: number;
  /** Interface that the rule applies to; up to 19 bytes. */
  interface: string;
}

/** What `neighbour_hosts` writes of a record. */
export interface NeighbourHostsOutput {
  /** IPv6 address; up to 46 bytes. */
  ip_addr: string;
  /** MAC address; up to 17 bytes. */
  mac_addr: string;
  /** Interface that it is reached through; up to 19 bytes. */
  interfaceID: string;
  /** State of the neighbour unreachability detection, code; 0..4294967295. */
  nud: number;
}

/** What `neighbour_hosts` takes. */
export interface NeighbourHostsInput {
  /** IPv6 address; up to 46 bytes. */
  ip_addr: string;
  /** MAC address; up to 17 bytes. */
  mac_addr: string;
  /** Interface that it is reached through; up to 19 bytes. */
  interfaceID: string;
  /** State of the neighbour unreachability detection, code; 0..4294967295. */
  nud: number;
}

/** What `ipv6_acl_capability` writes of a record. */
export interface Ipv6AclCapabilityOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Supported; key "ipv6_acl_capability". */
  ipv6_acl_capability: boolean;
  /** Names of the services, empty where unused; read-only; up to 8. */
  available_services: Array<string>;
}

/** What `ipv6_acl_capability` takes. */
export interface Ipv6AclCapabilityInput {
  /** Supported; key "ipv6_acl_capability". */
  ipv6_acl_capability: boolean;
}

/** What `ipv6_acl_config` writes of a record. */
export interface Ipv6AclConfigOutput {
  /** Rule active. */
  enable: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Interface that the rule applies to; up to 19 bytes. */
  interfaceID: string;
  /** Bits of it that count; 0..255. */
  ip6_prefix_length: number;
  /** IPv6 address; up to 45 bytes. */
  ip6_start_addr: string;
  /** All services reachable. */
  service_any: boolean;
  /** FTP reachable. */
  service_ftp: boolean;
  /** HTTP reachable. */
  service_http: boolean;
  /** HTTPS reachable. */
  service_https: boolean;
  /** Answers to ping. */
  service_ping: boolean;
  /** SSH reachable. */
  service_ssh: boolean;
  /** Telnet reachable. */
  service_telnet: boolean;
  /** TFTP reachable. */
  service_tftp: boolean;
}

/** What `ipv6_acl_config` takes. */
export interface Ipv6AclConfigInput {
  /** Interface that the rule applies to; up to 19 bytes. */
  interfaceID: string;
  /** IPv6 address; up to 45 bytes. */
  ip6_start_addr: string;
  /** Bits of it that count; 0..255. */
  ip6_prefix_length: number;
  /** Rule active. */
  enable: boolean;
  /** All services reachable. */
  service_any: boolean;
  /** Telnet reachable. */
  service_telnet?: boolean;
  /** FTP reachable. */
  service_ftp: boolean;
  /** TFTP reachable. */
  service_tftp: boolean;
  /** HTTP reachable. */
  service_http: boolean;
  /** HTTPS reachable. */
  service_https: boolean;
  /** Answers to ping. */
  service_ping: boolean;
  /** SSH reachable. */
  service_ssh: boolean;
}

/** What `ipv6_dhcp` writes of a record. */
export interface Ipv6DhcpOutput {
  /** Service on. */
  enabled: boolean;
  /** Kind of service, code; 0..4294967295. */
  mode: number;
}

/** What `ipv6_dhcp` takes. */
export interface Ipv6DhcpInput {
  /** Service on. */
  enabled: boolean;
  /** Kind of service, code; 0..4294967295. */
  mode: number;
}

/** What `static_routing` writes of a record. */
export interface StaticRoutingOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Route active. */
  state: boolean;
  route: {
    /** Destination network, dotted decimal; up to 16 bytes. */
    destination: string;
    /** Its mask, dotted decimal; up to 16 bytes. */
    net_mask: string;
    /** Gateway, dotted decimal; up to 16 bytes. */
    next_hop: string;
    /** Metric; 0..65535. */
    metric: number;
    /** Outgoing interface; up to 19 bytes. */
    interfaceID: string;
  };
}

/** What `static_routing` takes. */
export interface StaticRoutingInput {
  /** Route active. */
  state: boolean;
  route: {
    /** Destination network, dotted decimal; up to 16 bytes. */
    destination: string;
    /** Its mask, dotted decimal; up to 16 bytes. */
    net_mask: string;
    /** Gateway, dotted decimal; up to 16 bytes. */
    next_hop: string;
    /** Metric; 0..65535. */
    metric: number;
    /** Outgoing interface; up to 19 bytes. */
    interfaceID: string;
  };
}

/** What `qos_policy` writes of a record. */
export interface QosPolicyOutput {
  bandwidth_config: {
    /** The limit, in the host's unit; 0..4294967295. */
    totalbandwidth: number;
    /** Total bandwidth is limited. */
    totalbandwidth_enable: boolean;
  };
  /** Policy active. */
  enable: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Queues 1 to 4; up to 4. */
  queue_config: Array<{
    /** Queue active. */
    enable: boolean;
    /** Its weight; 0..255. */
    weight: number;
  }>;
  /** Scheduling mode code; 0..4294967295. */
  queue_mode: number;
}

/** What `qos_policy` takes. */
export interface QosPolicyInput {
  /** Policy active. */
  enable: boolean;
  /** Scheduling mode code; 0..4294967295. */
  queue_mode: number;
  /** Queues 1 to 4; 4; the new ones replace those that were there. */
  queue_config: Array<{
    /** Queue active. */
    enable: boolean;
    /** Its weight; 0..255. */
    weight: number;
  }>;
  bandwidth_config: {
    /** Total bandwidth is limited. */
    totalbandwidth_enable: boolean;
    /** The limit, in the host's unit; 0..4294967295. */
    totalbandwidth: number;
  };
}

/** What `qos_available_dscp` writes of a record. */
export interface QosAvailableDscpOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  qos_available_dscp: Array<{
    /** Name or value: NUL-terminated, of any length, or NULL; when the stored [].dscp is not null. */
    dscp?: string;
    /** Number of the entry; 0..4294967295. */
    id: number;
  }>;
}

/** What `qos_classification` writes of a record. */
export interface QosClassificationOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the rule; up to 63 bytes. */
  rule_name: string;
  /** Its place among the rules; read-only; 0..4294967295. */
  order: number;
  /** Mode code; 0..4294967295. */
  mode: number;
  precedence: {
    /** Precedence: priority; 0..4294967295. */
    precedence: number;
    /** Precedence: IEEE 802.1p class of service; 0..4294967295. */
    cos_802_1p: number;
    /** Precedence: DSCP to set; 0..255. */
    dscp_remarking: number;
  };
  port: {
    /** Port: number; 0..4294967295. */
    physical_port: number;
    /** Port: DSCP to match; 0..255. */
    dscp_pattern: number;
  };
  ethertype: {
    /** EtherType to match; 0..65535. */
    value: number;
  };
  ip_protocol: {
    /** IP: version code; 0..4294967295. */
    ip_version: number;
    /** IP: protocol code; 0..4294967295. */
    protocol: number;
    /** IP: DSCP to match; 0..255. */
    dscp_pattern: number;
    ip_config_src: {
      /** Source: IPv4 address, dotted decimal; up to 16 bytes. */
      ip4: string;
      /** Source: IPv4 mask, dotted decimal; up to 16 bytes. */
      ip4_mask: string;
      /** Source: IPv6 address; up to 45 bytes. */
      ip6: string;
      /** Source: bits of the IPv6 prefix; 0..255. */
      ip6_prefix_length: number;
    };
    ip_config_dst: {
      /** Destination: IPv4 address, dotted decimal; up to 16 bytes. */
      ip4: string;
      /** Destination: IPv4 mask, dotted decimal; up to 16 bytes. */
      ip4_mask: string;
      /** Destination: IPv6 address; up to 45 bytes. */
      ip6: string;
      /** Destination: bits of the IPv6 prefix; 0..255. */
      ip6_prefix_length: number;
    };
    src_port: {
      /** First source port; 0..65535. */
      start: number;
      /** Last source port; 0..65535. */
      end: number;
    };
    dst_port: {
      /** First destination port; 0..65535. */
      start: number;
      /** Last destination port; 0..65535. */
      end: number;
    };
  };
  mac: {
    /** Source MAC address; up to 17 bytes. */
    src: string;
    /** Destination MAC address; up to 17 bytes. */
    dst: string;
  };
}

/** What `qos_classification` takes. */
export interface QosClassificationInput {
  /** Name of the rule; up to 63 bytes. */
  rule_name: string;
  /** Must not be there. */
  order?: never;
  /** Mode code; 0..4294967295. */
  mode: number;
  precedence: {
    /** Precedence: priority; 0..4294967295. */
    precedence: number;
    /** Precedence: IEEE 802.1p class of service; 0..4294967295. */
    cos_802_1p: number;
    /** Precedence: DSCP to set; 0..255. */
    dscp_remarking: number;
  };
  port?: {
    /** Port: number; 0..4294967295. */
    physical_port?: number;
    /** Port: DSCP to match; 0..255. */
    dscp_pattern?: number;
  };
  ethertype?: {
    /** EtherType to match; 0..65535. */
    value?: number;
  };
  ip_protocol?: {
    /** IP: version code; 0..4294967295. */
    ip_version?: number;
    /** IP: protocol code; 0..4294967295. */
    protocol?: number;
    /** IP: DSCP to match; 0..255. */
    dscp_pattern?: number;
    ip_config_src?: {
      /** Source: IPv4 address, dotted decimal; up to 16 bytes. */
      ip4?: string;
      /** Source: IPv4 mask, dotted decimal; up to 16 bytes. */
      ip4_mask?: string;
      /** Source: IPv6 address; up to 45 bytes. */
      ip6?: string;
      /** Source: bits of the IPv6 prefix; 0..255. */
      ip6_prefix_length?: number;
    };
    ip_config_dst?: {
      /** Destination: IPv4 address, dotted decimal; up to 16 bytes. */
      ip4?: string;
      /** Destination: IPv4 mask, dotted decimal; up to 16 bytes. */
      ip4_mask?: string;
      /** Destination: IPv6 address; up to 45 bytes. */
      ip6?: string;
      /** Destination: bits of the IPv6 prefix; 0..255. */
      ip6_prefix_length?: number;
    };
    src_port?: {
      /** First source port; 0..65535. */
      start?: number;
      /** Last source port; 0..65535. */
      end?: number;
    };
    dst_port?: {
      /** First destination port; 0..65535. */
      start?: number;
      /** Last destination port; 0..65535. */
      end?: number;
    };
  };
  mac?: {
    /** Source MAC address; up to 17 bytes. */
    src?: string;
    /** Destination MAC address; up to 17 bytes. */
    dst?: string;
  };
}

/** What `ipv6_static_route` writes of a record. */
export interface Ipv6StaticRouteOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Route active. */
  enable: boolean;
  /** Destination prefix; up to 45 bytes. */
  destination: string;
  /** Gateway; up to 45 bytes. */
  next_hop: string;
  /** Metric; 0..4294967295. */
  metric: number;
  /** Outgoing interface; up to 19 bytes. */
  interface: string;
}

/** What `ipv6_static_route` takes. */
export interface Ipv6StaticRouteInput {
  /** Route active. */
  enable: boolean;
  /** Metric; 0..4294967295. */
  metric: number;
  /** Destination prefix; up to 45 bytes. */
  destination: string;
  /** Gateway; up to 45 bytes. */
  next_hop: string;
  /** Outgoing interface; up to 19 bytes. */
  interface: string;
}

/** What `global_routing` writes of a record. */
export interface GlobalRoutingOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  route: {
    /** Destination network, dotted decimal; up to 16 bytes. */
    destination: string;
    /** Outgoing interface; up to 19 bytes. */
    interfaceID: string;
    /** Metric; 0..65535. */
    metric: number;
    /** Its mask, dotted decimal; up to 16 bytes. */
    net_mask: string;
    /** Gateway, dotted decimal; up to 16 bytes. */
    next_hop: string;
  };
}

/** What `ddns` writes of a record. */
export interface DdnsOutput {
  /** Client on; a number in JSON; 0..255. */
  enabled: number;
  /** Host name to keep up to date; up to 34 bytes. */
  hostname: string;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Instance number; 0..4294967295. */
  instance_num: number;
  /** Interface whose address it follows; up to 19 bytes. */
  interface: string;
  /** Password, in clear; up to 34 bytes. */
  password: string;
  /** Provider code; 0..4294967295. */
  provider: number;
  /** Port of the provider's service; 0..65535. */
  service_port: number;
  /** State of the last update, code; 0..4294967295. */
  status: number;
  /** User name; up to 34 bytes. */
  username: string;
}

/** What `ddns` takes. */
export interface DdnsInput {
  /** Provider code; 0..4294967295. */
  provider: number;
  /** Host name to keep up to date; up to 34 bytes. */
  hostname: string;
  /** Interface whose address it follows; up to 19 bytes. */
  interface: string;
  /** User name; up to 34 bytes. */
  username: string;
  /** Password, in clear; up to 34 bytes. */
  password: string;
  /** Client on; a number in JSON; 0..1. */
  enabled: number;
  /** Instance number; 0..4294967295. */
  instance_num: number;
  /** Port of the provider's service; 0..65535. */
  service_port: number;
  /** State of the last update, code; 0..4294967295. */
  status?: number;
}

/** What `qos_traffic_control` writes of a record. */
export interface QosTrafficControlOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** IP version code; 0..4294967295. */
  ip_version: number;
  /** Direction code; 0..4294967295. */
  direction: number;
  /** Name of the interface; up to 19 bytes. */
  interfaceID: string;
  /** Protocol code; 0..4294967295. */
  protocol_type: number;
  /** Source port; 0..65535. */
  src_port: number;
  /** Destination port; 0..65535. */
  dst_port: number;
  /** The limit, in the host's unit; 0..4294967295. */
  limit_rate: number;
  ip4_config: {
    /** IPv4: source address, dotted decimal; up to 16 bytes. */
    src_ip: string;
    /** IPv4: bits of the source prefix; 0..255. */
    src_prefix_length: number;
    /** IPv4: destination address, dotted decimal; up to 16 bytes. */
    dst_ip: string;
    /** IPv4: bits of the destination prefix; 0..255. */
    dst_prefix_length: number;
  };
  ip6_config: {
    /** IPv6: source address; up to 45 bytes. */
    src_ip: string;
    /** IPv6: bits of the source prefix; 0..255. */
    src_prefix_length: number;
    /** IPv6: destination address; up to 45 bytes. */
    dst_ip: string;
    /** IPv6: bits of the destination prefix; 0..255. */
    dst_prefix_length: number;
  };
}

/** What `qos_traffic_control` takes. */
export interface QosTrafficControlInput {
  /** IP version code; 0..4294967295. */
  ip_version: number;
  /** Direction code; 0..4294967295. */
  direction: number;
  /** Name of the interface; up to 19 bytes. */
  interfaceID: string;
  /** Protocol code; 0..4294967295. */
  protocol_type: number;
  ip4_config?: {
    /** IPv4: source address, dotted decimal; up to 16 bytes. */
    src_ip?: string;
    /** IPv4: bits of the source prefix; 0..255. */
    src_prefix_length?: number;
    /** IPv4: destination address, dotted decimal; up to 16 bytes. */
    dst_ip?: string;
    /** IPv4: bits of the destination prefix; 0..255. */
    dst_prefix_length?: number;
  };
  ip6_config?: {
    /** IPv6: source address; up to 45 bytes. */
    src_ip?: string;
    /** IPv6: bits of the source prefix; 0..255. */
    src_prefix_length?: number;
    /** IPv6: destination address; up to 45 bytes. */
    dst_ip?: string;
    /** IPv6: bits of the destination prefix; 0..255. */
    dst_prefix_length?: number;
  };
  /** Source port; 0..65535. */
  src_port?: number;
  /** Destination port; 0..65535. */
  dst_port?: number;
  /** The limit, in the host's unit; 0..4294967295. */
  limit_rate?: number;
}

/** What `bridging` writes of a record. */
export interface BridgingOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Ageing time of its table, in the host's unit; 0..4294967295. */
  ageing_time: number;
  /** 802.1D spanning tree on (key "802_1_d_spanning_tree"). */
  "802_1_d_spanning_tree": boolean;
  /** Chain of learnt addresses, NULL when empty; read-only. */
  mac_list: Array<{
    /** Port number; 0..65535. */
    port: number;
    /** MAC address; up to 17 bytes. */
    mac_addr: string;
    /** The address is the bridge's own. */
    is_local: boolean;
    /** Age of the entry, as a string; up to 9 bytes. */
    ageing_time: string;
  }>;
}

/** What `bridging` takes. */
export interface BridgingInput {
  /** Ageing time of its table, in the host's unit; 0..4294967295. */
  ageing_time?: number;
  /** 802.1D spanning tree on (key "802_1_d_spanning_tree"). */
  "802_1_d_spanning_tree"?: boolean;
}

/** What `change_to_firmware_version` writes of a record. */
export interface ChangeToFirmwareVersionOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Switch requested or possible. */
  change: boolean;
  /** The other firmware's version; read-only; up to 31 bytes. */
  version: string;
}

/** What `change_to_firmware_version` takes. */
export interface ChangeToFirmwareVersionInput {
  /** Switch requested or possible. */
  change?: boolean;
}

/** What `igmp_mld_snooping` writes of a record. */
export interface IgmpMldSnoopingOutput {
  /** Snooping on. */
  enabled: boolean;
}

/** What `igmp_mld_snooping` takes. */
export interface IgmpMldSnoopingInput {
  /** Snooping on. */
  enabled: boolean;
}

/** What `ipv6_static_route_list` writes of a record. */
export interface Ipv6StaticRouteListOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Chain of routes, NULL when empty. */
  ipv6_static_route_list: Array<{
    /** Destination prefix; up to 45 bytes. */
    destination: string;
    /** Gateway; up to 45 bytes. */
    next_hop: string;
    /** Flags, as a string; up to 9 bytes. */
    flags: string;
    /** Metric; 0..4294967295. */
    metric: number;
    /** References to the route; 0..65535. */
    ref: number;
    /** How often it was used; 0..65535. */
    use: number;
    /** Outgoing interface; up to 19 bytes. */
    interfaceID: string;
  }>;
}

/** What `rip_enable` writes of a record. */
export interface RipEnableOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** RIP on. */
  enable: boolean;
}

/** What `rip_enable` takes. */
export interface RipEnableInput {
  /** RIP on. */
  enable: boolean;
}

/** What `rip_config` writes of a record. */
export interface RipConfigOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the interface; up to 19 bytes. */
  interfaceID: string;
  /** What is accepted, code; 0..4294967295. */
  receive_mode: number;
  /** What is sent, code; 0..4294967295. */
  send_mode: number;
}

/** What `rip_config` takes. */
export interface RipConfigInput {
  /** Name of the interface; up to 19 bytes. */
  interfaceID: string;
  /** What is accepted, code; 0..4294967295. */
  receive_mode: number;
  /** What is sent, code; 0..4294967295. */
  send_mode: number;
}

/** What `ipv6_ip_port_filter` writes of a record. */
export interface Ipv6IpPortFilterOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Name of the interface; up to 19 bytes. */
  interface_id: string;
  /** Direction code; 0..4294967295. */
  direction: number;
  /** Protocol code; 0..4294967295. */
  protocol: number;
  /** Action code; 0..4294967295. */
  rule_action: number;
  src_ipv6: {
    /** First source address; up to 45 bytes. */
    start: string;
    /** Last source address; up to 45 bytes. */
    end: string;
    /** Bits of the source prefix; 0..65535. */
    prefix_length: number;
  };
  dst_ipv6: {
    /** First destination address; up to 45 bytes. */
    start: string;
    /** Last destination address; up to 45 bytes. */
    end: string;
    /** Bits of the destination prefix; 0..65535. */
    prefix_length: number;
  };
  source_port: {
    /** First source port; 0..4294967295. */
    from: number;
    /** Last source port; 0..4294967295. */
    to: number;
  };
  destination_port: {
    /** First destination port; 0..4294967295. */
    from: number;
    /** Last destination port; 0..4294967295. */
    to: number;
  };
}

/** What `ipv6_ip_port_filter` takes. */
export interface Ipv6IpPortFilterInput {
  /** Name of the interface; up to 19 bytes. */
  interface_id?: string;
  /** Direction code; 0..4294967295. */
  direction?: number;
  /** Protocol code; 0..4294967295. */
  protocol?: number;
  /** Action code; 0..4294967295. */
  rule_action?: number;
  src_ipv6?: {
    /** First source address; up to 45 bytes. */
    start?: string;
    /** Last source address; up to 45 bytes. */
    end?: string;
    /** Bits of the source prefix; 0..65535. */
    prefix_length?: number;
  };
  dst_ipv6?: {
    /** First destination address; up to 45 bytes. */
    start?: string;
    /** Last destination address; up to 45 bytes. */
    end?: string;
    /** Bits of the destination prefix; 0..65535. */
    prefix_length?: number;
  };
  source_port?: {
    /** First source port; 0..4294967295. */
    from?: number;
    /** Last source port; 0..4294967295. */
    to?: number;
  };
  destination_port?: {
    /** First destination port; 0..4294967295. */
    from?: number;
    /** Last destination port; 0..4294967295. */
    to?: number;
  };
}

/** What `ipv6_ip_port_filter_default_rule` writes of a record. */
export interface Ipv6IpPortFilterDefaultRuleOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Action code for incoming traffic; 0..4294967295. */
  default_incoming_action: number;
  /** Action code for outgoing traffic; 0..4294967295. */
  default_outgoing_action: number;
}

/** What `ipv6_ip_port_filter_default_rule` takes. */
export interface Ipv6IpPortFilterDefaultRuleInput {
  /** Action code for incoming traffic; 0..4294967295. */
  default_incoming_action: number;
  /** Action code for outgoing traffic; 0..4294967295. */
  default_outgoing_action: number;
}

/** What `ipv6_dhcp_server` writes of a record. */
export interface Ipv6DhcpServerOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Mode code; 0..4294967295. */
  mode: number;
  addresses_config: {
    /** First address of the pool; up to 45 bytes. */
    ip_pool_range_start: string;
    /** Last address of the pool; up to 45 bytes. */
    ip_pool_range_end: string;
    /** Bits of the pool's prefix; 0..4294967295. */
    prefix_length: number;
    /** Valid lifetime of a lease; 0..4294967295. */
    valid_lifetime: number;
    /** Preferred lifetime of a lease; spelled as on the wire; 0..4294967295. */
    preffered_lifetime: number;
    /** T1; 0..4294967295. */
    renew_time: number;
    /** T2; 0..4294967295. */
    rebind_time: number;
    /** Client DUID option, two characters at most; up to 2 bytes. */
    client_duid: string;
  };
  /** Chain of search domains, NULL when empty. */
  domains: Array<string>;
  /** Chain of DNS servers, NULL when empty. */
  dns_servers: Array<string>;
}

/** What `ipv6_dhcp_server` takes. */
export interface Ipv6DhcpServerInput {
  /** Mode code; 0..4294967295. */
  mode: number;
  addresses_config: {
    /** First address of the pool; up to 45 bytes. */
    ip_pool_range_start: string;
    /** Last address of the pool; up to 45 bytes. */
    ip_pool_range_end: string;
    /** Bits of the pool's prefix; 0..4294967295. */
    prefix_length: number;
    /** Valid lifetime of a lease; 0..4294967295. */
    valid_lifetime: number;
    /** Preferred lifetime of a lease; spelled as on the wire; 0..4294967295. */
    preffered_lifetime: number;
    /** T1; 0..4294967295. */
    renew_time: number;
    /** T2; 0..4294967295. */
    rebind_time: number;
    /** Client DUID option, two characters at most; up to 2 bytes. */
    client_duid: string;
  };
  /** Chain of search domains, NULL when empty; the new ones go behind those that were there. */
  domains?: Array<string>;
  /** Chain of DNS servers, NULL when empty; the new ones go behind those that were there. */
  dns_servers?: Array<string>;
}

/** What `ipv6_dhcp_relay` writes of a record. */
export interface Ipv6DhcpRelayOutput {
  /** Interface towards the server; up to 19 bytes. */
  interfaceID: string;
}

/** What `ipv6_dhcp_relay` takes. */
export interface Ipv6DhcpRelayInput {
  /** Interface towards the server; up to 19 bytes. */
  interfaceID: string;
}

/** What `ipv6_dhcp_client` writes of a record. */
export interface Ipv6DhcpClientOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Address leased to it; up to 45 bytes. */
  ip_address: string;
  /** Its DUID; up to 127 bytes. */
  duid: string;
  /** Age of the lease, in the host's unit; 0..4294967295. */
  aging_time: number;
}

/** What `dhcp_client` writes of a record. */
export interface DhcpClientOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Its IPv4 address, dotted decimal; up to 16 bytes. */
  ip: string;
  /** Its host name; up to 79 bytes. */
  hostname: string;
  /** Its MAC address; up to 17 bytes. */
  mac: string;
  /** Remaining lease time, in the host's unit; 0..4294967295. */
  aging_time: number;
}

/** What `automatic_maintenance` writes of a record. */
export interface AutomaticMaintenanceOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Window on. */
  enabled: boolean;
  time: {
    /** Hour of the day; 0..255. */
    hour: number;
    /** Minute of the hour; 0..255. */
    min: number;
  };
}

/** What `automatic_maintenance` takes. */
export interface AutomaticMaintenanceInput {
  /** Window on. */
  enabled: boolean;
  time: {
    /** Hour of the day; 0..255. */
    hour: number;
    /** Minute of the hour; 0..255. */
    min: number;
  };
}

/** What `parental_control` writes of a record. */
export interface ParentalControlOutput {
  /** Parental control on. */
  enabled: boolean;
  /** Chain of rules, NULL when empty. */
  parental_control_list: Array<{
    /** User that the rule applies to; up to 31 bytes. */
    username: string;
    /** How the user's device is identified, code; 0..4294967295. */
    address_type: number;
    /** First IPv4 address of the device, dotted decimal; up to 16 bytes. */
    ip_address_from: string;
    /** Last IPv4 address, dotted decimal; up to 16 bytes. */
    ip_address_to: string;
    /** MAC address of the device; up to 17 bytes. */
    mac_address: string;
    /** Days that the rule applies on, the host's code or bit set; 0..4294967295. */
    days: number;
    /** Begin: hour; 0..255. */
    hours_begin: number;
    /** Begin: minute; 0..255. */
    minutes_begin: number;
    /** End: hour; 0..255. */
    hours_end: number;
    /** End: minute; 0..255. */
    minutes_end: number;
  }>;
}

/** What `parental_control` takes. */
export interface ParentalControlInput {
  /** Parental control on. */
  enabled: boolean;
  /** Chain of rules, NULL when empty; the new ones replace those that were there; an empty list changes nothing. */
  parental_control_list: Array<{
    /** User that the rule applies to; up to 31 bytes. */
    username: string;
    /** How the user's device is identified, code; 0..4294967295. */
    address_type: number;
    /** First IPv4 address of the device, dotted decimal; up to 16 bytes. */
    ip_address_from: string;
    /** Last IPv4 address, dotted decimal; up to 16 bytes. */
    ip_address_to: string;
    /** MAC address of the device; up to 17 bytes. */
    mac_address: string;
    /** Days that the rule applies on, the host's code or bit set; 0..4294967295. */
    days: number;
    /** Begin: hour; 0..255. */
    hours_begin: number;
    /** Begin: minute; 0..255. */
    minutes_begin: number;
    /** End: hour; 0..255. */
    hours_end: number;
    /** End: minute; 0..255. */
    minutes_end: number;
  }>;
}

/** What `custom_default_config` writes of a record. */
export interface CustomDefaultConfigOutput {
  /** In use. */
  enabled: boolean;
}

/** What `custom_default_config` takes. */
export interface CustomDefaultConfigInput {
  /** In use. */
  enabled: boolean;
}

/** What `ipv6_prefix_delegation` writes of a record. */
export interface Ipv6PrefixDelegationOutput {
  /** Mode code; 0..4294967295. */
  mode: number;
  /** Prefix; up to 45 bytes. */
  prefix: string;
  /** WAN interface that it comes from; up to 19 bytes. */
  interfaceID: string;
}

/** What `ipv6_prefix_delegation` takes. */
export interface Ipv6PrefixDelegationInput {
  /** Mode code; 0..4294967295. */
  mode: number;
  /** Prefix; up to 45 bytes. */
  prefix: string;
  /** WAN interface that it comes from; up to 19 bytes. */
  interfaceID: string;
}

/** What `wlan_access_control` writes of a record. */
export interface WlanAccessControlOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Access control mode code; 0..4294967295. */
  mode: number;
  /** Chain of addresses, NULL when empty. */
  mac_list: Array<string>;
}

/** What `wlan_access_control` takes. */
export interface WlanAccessControlInput {
  /** Access control mode code; 0..4294967295. */
  mode: number;
  /** Chain of addresses, NULL when empty; the new ones replace those that were there. */
  mac_list: Array<string>;
}

/** What `limited_user_permissions` writes of a record. */
export interface LimitedUserPermissionsOutput {
  /** Chain, NULL when empty. */
  limited_user_permissions: Array<{
    /** NUL-terminated string of any length, the host's; when the stored limited_user_permissions[].resource_name is not null. */
    resource_name?: string;
    /** The front end's number of it; 0..4294967295. */
    resource_id: number;
  }>;
}

/** What `tr369_mqtt_client` writes of a record. */
export interface Tr369MqttClientOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Client on. */
  enabled: boolean;
  /** Address of the broker; up to 255 bytes. */
  brokeraddress: string;
  /** Port of the broker; -2147483648..2147483647. */
  brokerport: number;
  /** User name; up to 255 bytes. */
  username: string;
  /** Password, in clear; up to 255 bytes. */
  password: string;
  /** Client identifier; up to 255 bytes. */
  clientID: string;
  /** Time between keep-alives, in the host's unit; -2147483648..2147483647. */
  keep_alive_time: number;
  /** Version code of MQTT; 0..4294967295. */
  protocol_version: number;
  /** Transport protocol code; 0..4294967295. */
  transport_protocol: number;
  /** Chain of subscriptions, NULL when empty. */
  subscription: Array<{
    /** Subscription active. */
    enabled: boolean;
    /** Topic; up to 255 bytes. */
    topic: string;
    /** MQTT quality of service level; 0..4294967295. */
    qos: number;
  }>;
}

/** What `tr369_mqtt_client` takes. */
export interface Tr369MqttClientInput {
  /** Client on. */
  enabled: boolean;
  /** Address of the broker; up to 255 bytes. */
  brokeraddress: string;
  /** Port of the broker; -2147483648..2147483647. */
  brokerport: number;
  /** User name; up to 255 bytes. */
  username: string;
  /** Password, in clear; up to 255 bytes. */
  password: string;
  /** Client identifier; up to 255 bytes. */
  clientID: string;
  /** Time between keep-alives, in the host's unit; -2147483648..2147483647. */
  keep_alive_time: number;
  /** Version code of MQTT; 0..4294967295. */
  protocol_version: number;
  /** Transport protocol code; 0..4294967295. */
  transport_protocol: number;
  /** Chain of subscriptions, NULL when empty; the new ones go behind those that were there. */
  subscription: Array<{
    /** Subscription active. */
    enabled: boolean;
    /** Topic; up to 255 bytes. */
    topic: string;
    /** MQTT quality of service level; 0..4294967295. */
    qos: number;
  }>;
}

/** What `tr369_local_agent_mtp` writes of a record. */
export interface Tr369LocalAgentMtpOutput {
  /** MTP active. */
  enabled: boolean;
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** KELMORA_TR369_MTP_MQTT, or a code of the host's; 0..4294967295. */
  protocol: number;
  mqtt_config: {
    /** MQTT: the client that it uses; up to 127 bytes; when the stored protocol is 1. */
    reference?: string;
    /** MQTT: topic that responses go to; up to 256 bytes; when the stored protocol is 1. */
    reference_topic?: string;
    /** MQTT: quality of service level; 0..4294967295; when the stored protocol is 1. */
    qos?: number;
  };
}

/** What `tr369_local_agent_mtp` takes. */
export interface Tr369LocalAgentMtpInput {
  /** MTP active. */
  enabled: boolean;
  /** KELMORA_TR369_MTP_MQTT, or a code of the host's; 0..4294967295. */
  protocol: number;
  /** Looked at when protocol is 1. */
  mqtt_config?: {
    /** MQTT: the client that it uses; up to 127 bytes. */
    reference: string;
    /** MQTT: topic that responses go to; up to 256 bytes. */
    reference_topic: string;
    /** MQTT: quality of service level; 0..4294967295. */
    qos: number;
  };
}

/** What `tr369_local_agent_controller` writes of a record. */
export interface Tr369LocalAgentControllerOutput {
  /** The record's identifier; up to 128 bytes. */
  id: string;
  /** Controller active. */
  enabled: boolean;
  /** Its endpoint identifier; up to 255 bytes. */
  endpoint_id: string;
  /** Time between notifications, in the host's unit; -2147483648..2147483647. */
  periodic_notific_interval: number;
  /** Chain of its MTPs, NULL when empty. */
  mtp: Array<{
    /** MTP active. */
    enabled: boolean;
    /** kelmora_tr369_mtp_protocol: which variant holds; 0..4294967295. */
    protocol: number;
    /** When the stored mtp[].protocol is 0. */
    websocket?: {
      /** Host name or address; up to 255 bytes. */
      host: string;
      /** Port; -2147483648..2147483647. */
      port: number;
      /** Path of the URL; up to 255 bytes. */
      path: string;
      /** Over TLS. */
      encryption: boolean;
      /** Time between keep-alives, in the host's unit; -2147483648..2147483647. */
      keep_alive_interval: number;
    };
    /** When the stored mtp[].protocol is 1. */
    mqtt?: {
      /** The client that is used; up to 127 bytes. */
      reference: string;
      /** Topic that the controller listens to; up to 255 bytes. */
      reference_topic: string;
    };
  }>;
}

/** What `tr369_local_agent_controller` takes. */
export interface Tr369LocalAgentControllerInput {
  /** Controller active. */
  enabled: boolean;
  /** Its endpoint identifier; up to 255 bytes. */
  endpoint_id: string;
  /** Time between notifications, in the host's unit; -2147483648..2147483647. */
  periodic_notific_interval: number;
  /** Chain of its MTPs, NULL when empty; the new ones go behind those that were there. */
  mtp: Array<{
    /** MTP active. */
    enabled: boolean;
    /** kelmora_tr369_mtp_protocol: which variant holds; 0..4294967295. */
    protocol: number;
    /** Looked at when protocol is 0. */
    websocket?: {
      /** Host name or address; up to 255 bytes. */
      host: string;
      /** Port; -2147483648..2147483647. */
      port: number;
      /** Path of the URL; up to 255 bytes. */
      path: string;
      /** Over TLS. */
      encryption: boolean;
      /** Time between keep-alives, in the host's unit; -2147483648..2147483647. */
      keep_alive_interval: number;
    };
    /** Looked at when protocol is 1. */
    mqtt?: {
      /** The client that is used; up to 127 bytes. */
      reference: string;
      /** Topic that the controller listens to; up to 255 bytes. */
      reference_topic: string;
    };
  }>;
}

/** All resources that have documents, by name. */
export interface Resources {
  wireless: {
    /** One record. */
    output: WirelessOutput;
    /** The whole text. */
    text: WirelessOutput | WirelessOutput[];
    input: WirelessInput;
  };
  session: {
    /** One record. */
    output: SessionOutput;
    /** The whole text. */
    text: SessionOutput[];
    input: SessionInput;
  };
  interface: {
    /** One record. */
    output: InterfaceOutput;
    /** The whole text. */
    text: InterfaceOutput | InterfaceOutput[];
    input: InterfaceInput;
  };
  natportredirect: {
    /** One record. */
    output: NatportredirectOutput;
    /** The whole text. */
    text: NatportredirectOutput | NatportredirectOutput[];
    input: NatportredirectInput;
  };
  wan: {
    /** One record. */
    output: WanOutput;
    /** The whole text. */
    text: WanOutput | WanOutput[];
    input: WanInput;
  };
  radio: {
    /** One record. */
    output: RadioOutput;
    /** The whole text. */
    text: RadioOutput | RadioOutput[];
    input: RadioInput;
  };
  lan: {
    /** One record. */
    output: LanOutput;
    /** The whole text. */
    text: LanOutput[];
    input: LanInput;
  };
  factory_default: {
    /** One record. */
    output: FactoryDefaultOutput;
    /** The whole text. */
    text: FactoryDefaultOutput[];
    input: FactoryDefaultInput;
  };
  pppoe: {
    /** One record. */
    output: PppoeOutput;
    /** The whole text. */
    text: PppoeOutput | PppoeOutput[];
    input: PppoeInput;
  };
  remote_web_access: {
    /** One record. */
    output: RemoteWebAccessOutput;
    /** The whole text. */
    text: RemoteWebAccessOutput | RemoteWebAccessOutput[];
    input: RemoteWebAccessInput;
  };
  dhcp_server: {
    /** One record. */
    output: DhcpServerOutput;
    /** The whole text. */
    text: DhcpServerOutput | DhcpServerOutput[];
    input: DhcpServerInput;
  };
  telnet: {
    input: TelnetInput;
  };
  mp_info: {
    /** One record. */
    output: MpInfoOutput;
    /** The whole text. */
    text: MpInfoOutput | MpInfoOutput[];
    input: MpInfoInput;
  };
  action: {
    /** One record. */
    output: ActionOutput;
    /** The whole text. */
    text: ActionOutput[];
    input: ActionInput;
  };
  user: {
    /** One record. */
    output: UserOutput;
    /** The whole text. */
    text: UserOutput | UserOutput[];
    input: UserInput;
  };
  device: {
    /** One record. */
    output: DeviceOutput;
    /** The whole text. */
    text: DeviceOutput | DeviceOutput[];
    input: DeviceInput;
  };
  status: {
    /** One record. */
    output: StatusOutput;
    /** The whole text. */
    text: StatusOutput | StatusOutput[];
  };
  interface_statistics: {
    /** One record. */
    output: InterfaceStatisticsOutput;
    /** The whole text. */
    text: InterfaceStatisticsOutput | InterfaceStatisticsOutput[];
    input: InterfaceStatisticsInput;
  };
  connected_device: {
    /** One record. */
    output: ConnectedDeviceOutput;
    /** The whole text. */
    text: ConnectedDeviceOutput | ConnectedDeviceOutput[];
  };
  site_survey: {
    /** One record. */
    output: SiteSurveyOutput;
    /** The whole text. */
    text: SiteSurveyOutput | SiteSurveyOutput[];
  };
  system: {
    /** One record. */
    output: SystemOutput;
    /** The whole text. */
    text: SystemOutput | SystemOutput[];
    input: SystemInput;
  };
  easymesh: {
    /** One record. */
    output: EasymeshOutput;
    /** The whole text. */
    text: EasymeshOutput | EasymeshOutput[];
    input: EasymeshInput;
  };
  ping: {
    /** One record. */
    output: PingOutput;
    /** The whole text. */
    text: PingOutput | PingOutput[];
    input: PingInput;
  };
  qos: {
    /** One record. */
    output: QosOutput;
    /** The whole text. */
    text: QosOutput | QosOutput[];
    input: QosInput;
  };
  qos_rule: {
    /** One record. */
    output: QosRuleOutput;
    /** The whole text. */
    text: QosRuleOutput | QosRuleOutput[];
    input: QosRuleInput;
  };
  filter: {
    /** One record. */
    output: FilterOutput;
    /** The whole text. */
    text: FilterOutput | FilterOutput[];
    input: FilterInput;
  };
  limits: {
    /** One record. */
    output: LimitsOutput;
    /** The whole text. */
    text: LimitsOutput | LimitsOutput[];
    input: LimitsInput;
  };
  dhcp_static_lease: {
    /** One record. */
    output: DhcpStaticLeaseOutput;
    /** The whole text. */
    text: DhcpStaticLeaseOutput | DhcpStaticLeaseOutput[];
    input: DhcpStaticLeaseInput;
  };
  daily_reboot: {
    /** One record. */
    output: DailyRebootOutput;
    /** The whole text. */
    text: DailyRebootOutput | DailyRebootOutput[];
    input: DailyRebootInput;
  };
  datetime: {
    /** One record. */
    output: DatetimeOutput;
    /** The whole text. */
    text: DatetimeOutput | DatetimeOutput[];
    input: DatetimeInput;
  };
  traceroute: {
    /** One record. */
    output: TracerouteOutput;
    /** The whole text. */
    text: TracerouteOutput | TracerouteOutput[];
    input: TracerouteInput;
  };
  wan_detect: {
    /** One record. */
    output: WanDetectOutput;
    /** The whole text. */
    text: WanDetectOutput | WanDetectOutput[];
    input: WanDetectInput;
  };
  iptables: {
    /** One record. */
    output: IptablesOutput;
    /** The whole text. */
    text: IptablesOutput | IptablesOutput[];
    input: IptablesInput;
  };
  mirroring: {
    /** One record. */
    output: MirroringOutput;
    /** The whole text. */
    text: MirroringOutput;
    input: MirroringInput;
  };
  pon_stats: {
    /** One record. */
    output: PonStatsOutput;
    /** The whole text. */
    text: PonStatsOutput | PonStatsOutput[];
  };
  pon_settings: {
    /** One record. */
    output: PonSettingsOutput;
    /** The whole text. */
    text: PonSettingsOutput | PonSettingsOutput[];
    input: PonSettingsInput;
  };
  pon_nodes: {
    /** One record. */
    output: PonNodesOutput;
    /** The whole text. */
    text: PonNodesOutput | PonNodesOutput[];
  };
  pon_counters: {
    /** One record. */
    output: PonCountersOutput;
    /** The whole text. */
    text: PonCountersOutput | PonCountersOutput[];
  };
  syslog: {
    /** One record. */
    output: SyslogOutput;
    /** The whole text. */
    text: SyslogOutput | SyslogOutput[];
    input: SyslogInput;
  };
  gpon_status: {
    /** One record. */
    output: GponStatusOutput;
    /** The whole text. */
    text: GponStatusOutput | GponStatusOutput[];
  };
  gem_port_stats: {
    /** One record. */
    output: GemPortStatsOutput;
    /** The whole text. */
    text: GemPortStatsOutput[];
  };
  pon_status: {
    /** One record. */
    output: PonStatusOutput;
    /** The whole text. */
    text: PonStatusOutput | PonStatusOutput[];
  };
  http_request: {
    /** One record. */
    output: HttpRequestOutput;
    /** The whole text. */
    text: HttpRequestOutput | HttpRequestOutput[];
    input: HttpRequestInput;
  };
  loop_back_detect: {
    /** One record. */
    output: LoopBackDetectOutput;
    /** The whole text. */
    text: LoopBackDetectOutput | LoopBackDetectOutput[];
    input: LoopBackDetectInput;
  };
  epon_llid_status: {
    /** One record. */
    output: EponLlidStatusOutput;
    /** The whole text. */
    text: EponLlidStatusOutput | EponLlidStatusOutput[];
  };
  ipv6_radvd: {
    /** One record. */
    output: Ipv6RadvdOutput;
    /** The whole text. */
    text: Ipv6RadvdOutput | Ipv6RadvdOutput[];
    input: Ipv6RadvdInput;
  };
  wan_lan_list: {
    /** One record. */
    output: WanLanListOutput;
    /** The whole text. */
    text: WanLanListOutput | WanLanListOutput[];
    input: WanLanListInput;
  };
  wan_service_type: {
    /** One record. */
    output: WanServiceTypeOutput;
    /** The whole text. */
    text: WanServiceTypeOutput | WanServiceTypeOutput[];
    input: WanServiceTypeInput;
  };
  ipv6_proxy_mld: {
    /** One record. */
    output: Ipv6ProxyMldOutput;
    /** The whole text. */
    text: Ipv6ProxyMldOutput | Ipv6ProxyMldOutput[];
    input: Ipv6ProxyMldInput;
  };
  loopback_detect_status: {
    /** One record. */
    output: LoopbackDetectStatusOutput;
    /** The whole text. */
    text: LoopbackDetectStatusOutput | LoopbackDetectStatusOutput[];
    input: LoopbackDetectStatusInput;
  };
  acl_capability: {
    /** One record. */
    output: AclCapabilityOutput;
    /** The whole text. */
    text: AclCapabilityOutput | AclCapabilityOutput[];
    input: AclCapabilityInput;
  };
  acl_config: {
    /** One record. */
    output: AclConfigOutput;
    /** The whole text. */
    text: AclConfigOutput | AclConfigOutput[];
    input: AclConfigInput;
  };
  tr069_config: {
    /** One record. */
    output: Tr069ConfigOutput;
    /** The whole text. */
    text: Tr069ConfigOutput | Tr069ConfigOutput[];
    input: Tr069ConfigInput;
  };
  lan_port_status: {
    /** One record. */
    output: LanPortStatusOutput;
    /** The whole text. */
    text: LanPortStatusOutput | LanPortStatusOutput[];
  };
  firewall_domain_blocking: {
    /** One record. */
    output: FirewallDomainBlockingOutput;
    /** The whole text. */
    text: FirewallDomainBlockingOutput | FirewallDomainBlockingOutput[];
    input: FirewallDomainBlockingInput;
  };
  firewall_url_blocking: {
    /** One record. */
    output: FirewallUrlBlockingOutput;
    /** The whole text. */
    text: FirewallUrlBlockingOutput | FirewallUrlBlockingOutput[];
    input: FirewallUrlBlockingInput;
  };
  firewall_mac_filtering: {
    /** One record. */
    output: FirewallMacFilteringOutput;
    /** The whole text. */
    text: FirewallMacFilteringOutput | FirewallMacFilteringOutput[];
    input: FirewallMacFilteringInput;
  };
  firewall_ip_port_filtering: {
    /** One record. */
    output: FirewallIpPortFilteringOutput;
    /** The whole text. */
    text: FirewallIpPortFilteringOutput | FirewallIpPortFilteringOutput[];
    input: FirewallIpPortFilteringInput;
  };
  firewall_alg: {
    /** One record. */
    output: FirewallAlgOutput;
    /** The whole text. */
    text: FirewallAlgOutput | FirewallAlgOutput[];
    input: FirewallAlgInput;
  };
  tr069_inform: {
    /** One record. */
    output: Tr069InformOutput;
    /** The whole text. */
    text: Tr069InformOutput | Tr069InformOutput[];
  };
  firewall_port_forwarding_enable: {
    /** One record. */
    output: FirewallPortForwardingEnableOutput;
    /** The whole text. */
    text: FirewallPortForwardingEnableOutput | FirewallPortForwardingEnableOutput[];
    input: FirewallPortForwardingEnableInput;
  };
  igmp_proxy: {
    /** One record. */
    output: IgmpProxyOutput;
    /** The whole text. */
    text: IgmpProxyOutput | IgmpProxyOutput[];
    input: IgmpProxyInput;
  };
  firewall_port_forwarding_table: {
    /** One record. */
    output: FirewallPortForwardingTableOutput;
    /** The whole text. */
    text: FirewallPortForwardingTableOutput | FirewallPortForwardingTableOutput[];
    input: FirewallPortForwardingTableInput;
  };
  neighbour_hosts: {
    /** One record. */
    output: NeighbourHostsOutput;
    /** The whole text. */
    text: NeighbourHostsOutput[];
    input: NeighbourHostsInput;
  };
  ipv6_acl_capability: {
    /** One record. */
    output: Ipv6AclCapabilityOutput;
    /** The whole text. */
    text: Ipv6AclCapabilityOutput | Ipv6AclCapabilityOutput[];
    input: Ipv6AclCapabilityInput;
  };
  ipv6_acl_config: {
    /** One record. */
    output: Ipv6AclConfigOutput;
    /** The whole text. */
    text: Ipv6AclConfigOutput | Ipv6AclConfigOutput[];
    input: Ipv6AclConfigInput;
  };
  ipv6_dhcp: {
    /** One record. */
    output: Ipv6DhcpOutput;
    /** The whole text. */
    text: Ipv6DhcpOutput | Ipv6DhcpOutput[];
    input: Ipv6DhcpInput;
  };
  static_routing: {
    /** One record. */
    output: StaticRoutingOutput;
    /** The whole text. */
    text: StaticRoutingOutput | StaticRoutingOutput[];
    input: StaticRoutingInput;
  };
  qos_policy: {
    /** One record. */
    output: QosPolicyOutput;
    /** The whole text. */
    text: QosPolicyOutput | QosPolicyOutput[];
    input: QosPolicyInput;
  };
  qos_available_dscp: {
    /** One record. */
    output: QosAvailableDscpOutput;
    /** The whole text. */
    text: QosAvailableDscpOutput | QosAvailableDscpOutput[];
  };
  qos_classification: {
    /** One record. */
    output: QosClassificationOutput;
    /** The whole text. */
    text: QosClassificationOutput | QosClassificationOutput[];
    input: QosClassificationInput;
  };
  ipv6_static_route: {
    /** One record. */
    output: Ipv6StaticRouteOutput;
    /** The whole text. */
    text: Ipv6StaticRouteOutput | Ipv6StaticRouteOutput[];
    input: Ipv6StaticRouteInput;
  };
  global_routing: {
    /** One record. */
    output: GlobalRoutingOutput;
    /** The whole text. */
    text: GlobalRoutingOutput | GlobalRoutingOutput[];
  };
  ddns: {
    /** One record. */
    output: DdnsOutput;
    /** The whole text. */
    text: DdnsOutput | DdnsOutput[];
    input: DdnsInput;
  };
  qos_traffic_control: {
    /** One record. */
    output: QosTrafficControlOutput;
    /** The whole text. */
    text: QosTrafficControlOutput | QosTrafficControlOutput[];
    input: QosTrafficControlInput;
  };
  bridging: {
    /** One record. */
    output: BridgingOutput;
    /** The whole text. */
    text: BridgingOutput | BridgingOutput[];
    input: BridgingInput;
  };
  change_to_firmware_version: {
    /** One record. */
    output: ChangeToFirmwareVersionOutput;
    /** The whole text. */
    text: ChangeToFirmwareVersionOutput | ChangeToFirmwareVersionOutput[];
    input: ChangeToFirmwareVersionInput;
  };
  igmp_mld_snooping: {
    /** One record. */
    output: IgmpMldSnoopingOutput;
    /** The whole text. */
    text: IgmpMldSnoopingOutput | IgmpMldSnoopingOutput[];
    input: IgmpMldSnoopingInput;
  };
  ipv6_static_route_list: {
    /** One record. */
    output: Ipv6StaticRouteListOutput;
    /** The whole text. */
    text: Ipv6StaticRouteListOutput | Ipv6StaticRouteListOutput[];
  };
  rip_enable: {
    /** One record. */
    output: RipEnableOutput;
    /** The whole text. */
    text: RipEnableOutput | RipEnableOutput[];
    input: RipEnableInput;
  };
  rip_config: {
    /** One record. */
    output: RipConfigOutput;
    /** The whole text. */
    text: RipConfigOutput | RipConfigOutput[];
    input: RipConfigInput;
  };
  ipv6_ip_port_filter: {
    /** One record. */
    output: Ipv6IpPortFilterOutput;
    /** The whole text. */
    text: Ipv6IpPortFilterOutput | Ipv6IpPortFilterOutput[];
    input: Ipv6IpPortFilterInput;
  };
  ipv6_ip_port_filter_default_rule: {
    /** One record. */
    output: Ipv6IpPortFilterDefaultRuleOutput;
    /** The whole text. */
    text: Ipv6IpPortFilterDefaultRuleOutput | Ipv6IpPortFilterDefaultRuleOutput[];
    input: Ipv6IpPortFilterDefaultRuleInput;
  };
  ipv6_dhcp_server: {
    /** One record. */
    output: Ipv6DhcpServerOutput;
    /** The whole text. */
    text: Ipv6DhcpServerOutput | Ipv6DhcpServerOutput[];
    input: Ipv6DhcpServerInput;
  };
  ipv6_dhcp_relay: {
    /** One record. */
    output: Ipv6DhcpRelayOutput;
    /** The whole text. */
    text: Ipv6DhcpRelayOutput | Ipv6DhcpRelayOutput[];
    input: Ipv6DhcpRelayInput;
  };
  ipv6_dhcp_client: {
    /** One record. */
    output: Ipv6DhcpClientOutput;
    /** The whole text. */
    text: Ipv6DhcpClientOutput | Ipv6DhcpClientOutput[];
  };
  dhcp_client: {
    /** One record. */
    output: DhcpClientOutput;
    /** The whole text. */
    text: DhcpClientOutput | DhcpClientOutput[];
  };
  automatic_maintenance: {
    /** One record. */
    output: AutomaticMaintenanceOutput;
    /** The whole text. */
    text: AutomaticMaintenanceOutput | AutomaticMaintenanceOutput[];
    input: AutomaticMaintenanceInput;
  };
  parental_control: {
    /** One record. */
    output: ParentalControlOutput;
    /** The whole text. */
    text: ParentalControlOutput;
    input: ParentalControlInput;
  };
  custom_default_config: {
    /** One record. */
    output: CustomDefaultConfigOutput;
    /** The whole text. */
    text: CustomDefaultConfigOutput | CustomDefaultConfigOutput[];
    input: CustomDefaultConfigInput;
  };
  ipv6_prefix_delegation: {
    /** One record. */
    output: Ipv6PrefixDelegationOutput;
    /** The whole text. */
    text: Ipv6PrefixDelegationOutput | Ipv6PrefixDelegationOutput[];
    input: Ipv6PrefixDelegationInput;
  };
  wlan_access_control: {
    /** One record. */
    output: WlanAccessControlOutput;
    /** The whole text. */
    text: WlanAccessControlOutput | WlanAccessControlOutput[];
    input: WlanAccessControlInput;
  };
  limited_user_permissions: {
    /** One record. */
    output: LimitedUserPermissionsOutput;
    /** The whole text. */
    text: LimitedUserPermissionsOutput | LimitedUserPermissionsOutput[];
  };
  tr369_mqtt_client: {
    /** One record. */
    output: Tr369MqttClientOutput;
    /** The whole text. */
    text: Tr369MqttClientOutput | Tr369MqttClientOutput[];
    input: Tr369MqttClientInput;
  };
  tr369_local_agent_mtp: {
    /** One record. */
    output: Tr369LocalAgentMtpOutput;
    /** The whole text. */
    text: Tr369LocalAgentMtpOutput | Tr369LocalAgentMtpOutput[];
    input: Tr369LocalAgentMtpInput;
  };
  tr369_local_agent_controller: {
    /** One record. */
    output: Tr369LocalAgentControllerOutput;
    /** The whole text. */
    text: Tr369LocalAgentControllerOutput | Tr369LocalAgentControllerOutput[];
    input: Tr369LocalAgentControllerInput;
  };
}
