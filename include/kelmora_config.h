/*
 * What host and plug-in must be built with alike: it decides where the fields of nodes and records stand.
 *
 * These are the defaults, for builds of the project itself, which may define other values. The header that is
 * installed under this name has the values that the plug-in was built with, and refuses any other.
 */
#ifndef KELMORA_CONFIG_H
#define KELMORA_CONFIG_H

/* Pointers of the host's own in front of a node's public fields; at least 1. */
#ifndef KELMORA_HOST_PRIVATE_POINTERS
#define KELMORA_HOST_PRIVATE_POINTERS 2
#endif

/* Bytes of the host's own inside the record of tr069_config, in front of the certificate; at least 1. */
#ifndef KELMORA_TR069_HOST_BLOCK_SIZE
#define KELMORA_TR069_HOST_BLOCK_SIZE 4
#endif

#endif
