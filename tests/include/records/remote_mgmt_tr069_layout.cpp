// The default, whatever this build was configured with.
#undef KELMORA_TR069_HOST_BLOCK_SIZE
#include "records/remote_mgmt.h"

#include "layout.h"

EXPECT_FIELD(kelmora_tr069_config, tr069_enable, std::uint8_t, 0);
EXPECT_FIELD(kelmora_tr069_config, acs_url, char[257], 1);
EXPECT_FIELD(kelmora_tr069_config, acs_username, char[257], 258);
EXPECT_FIELD(kelmora_tr069_config, acs_password, char[257], 515);
EXPECT_FIELD(kelmora_tr069_config, tr069_inform, std::uint8_t, 772);
EXPECT_FIELD(kelmora_tr069_config, tr069_interval, std::uint32_t, 776);
EXPECT_FIELD(kelmora_tr069_config, connection_enabled, std::uint8_t, 780);
EXPECT_FIELD(kelmora_tr069_config, conreq_name, char[257], 781);
EXPECT_FIELD(kelmora_tr069_config, conreq_pw, char[257], 1038);
EXPECT_FIELD(kelmora_tr069_config, conreq_path, char[257], 1295);
EXPECT_FIELD(kelmora_tr069_config, conreq_port, std::int32_t, 1552);
EXPECT_FIELD(kelmora_tr069_config, stun_enabled, std::uint8_t, 1556);
EXPECT_FIELD(kelmora_tr069_config, stun_server_addr, char[257], 1557);
EXPECT_FIELD(kelmora_tr069_config, stun_server_port, std::int32_t, 1816);
EXPECT_FIELD(kelmora_tr069_config, host_block, unsigned char[4], 1820);
EXPECT_FIELD(kelmora_tr069_config, ca_cert, char[4097], 1824);
static_assert(sizeof(kelmora_tr069_config) == 5924);

EXPECT_FIELD(kelmora_tr069_inform, status, std::uint32_t, 0);
EXPECT_FIELD(kelmora_tr069_inform, cause, char *, is_64_bit ? 8 : 4);
static_assert(sizeof(kelmora_tr069_inform) == (is_64_bit ? 16 : 8));
