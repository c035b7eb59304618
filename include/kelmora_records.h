/*
 * The records of all resources: the host's plain C structs that the translators read and fill.
 *
 * Fields stand in their fixed order and widths, with natural alignment. They are named after their JSON keys, and keep
 * the spelling of the wire (interfaceID, opMode): the one exception to this project's naming, so the headers below
 * records/ are exempt from the naming check. Widths of strings include the terminating NUL. Switches are one byte, 0 or
 * 1, unless a field says otherwise. Codes are the host's enumerations and pass through unchanged, and so do times,
 * rates and readings in a unit of the host's. What is read-only is written as JSON, and no document changes it.
 *
 * All that hangs on a record is the host's to free: strings of any length, and chains, which are linked by `next` and
 * end in NULL. Each says who makes it. What documents let go of without freeing it: kelmora_host.h.
 */
#ifndef KELMORA_RECORDS_H
#define KELMORA_RECORDS_H

#include "records/device.h"
#include "records/diagnostics.h"
#include "records/firewall.h"
#include "records/ipv6.h"
#include "records/pon.h"
#include "records/qos.h"
#include "records/remote_mgmt.h"
#include "records/routing.h"
#include "records/wan_lan.h"
#include "records/wireless.h"

#endif
