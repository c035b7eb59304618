#ifndef KELMORA_BENCH_OTHER_LIBRARIES_OTHER_LIBRARIES_H
#define KELMORA_BENCH_OTHER_LIBRARIES_OTHER_LIBRARIES_H

#include "kelmora_host.h"

namespace kelmora_bench {

/// Another way to the same documents: three resources, translated as a good user of that way would write it. Like the
/// baselines they check nothing that good input passes, but whether a text is JSON at all.
struct OtherLibrary {
    const char *name;
    kelmora_to_translator wireless_to;
    kelmora_from_translator wireless_from; ///< NULL where the other_library does not read; so is firewall_from then
    kelmora_to_translator pon_counters_to;
    kelmora_to_translator firewall_to; ///< firewall_ip_port_filtering
    kelmora_from_translator firewall_from;
};

extern const OtherLibrary by_hand_peer;
extern const OtherLibrary cjson_peer;
extern const OtherLibrary jansson_pack_peer;
extern const OtherLibrary
    json_c_peer; ///< in a shared object of its own: two of the JSON libraries share names of functions
extern const OtherLibrary nlohmann_peer;
extern const OtherLibrary rapidjson_document_peer;
extern const OtherLibrary rapidjson_stream_peer;

} // namespace kelmora_bench

#endif
