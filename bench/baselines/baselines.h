#ifndef KELMORA_BENCH_BASELINES_BASELINES_H
#define KELMORA_BENCH_BASELINES_BASELINES_H

#include "kelmora_host.h"

// The baselines: what a translator costs at the least with this JSON library. They do what their resource needs for
// good input, and check nothing that good input passes: they are measured, never shipped.

int connected_device_to_baseline(kelmora_resource *head, char **out);
int datetime_to_baseline(kelmora_resource *head, char **out);
int datetime_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int easymesh_to_baseline(kelmora_resource *head, char **out);
int easymesh_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int firewall_ip_port_filtering_to_baseline(kelmora_resource *head, char **out);
int firewall_ip_port_filtering_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int interface_to_baseline(kelmora_resource *head, char **out);
int interface_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int parental_control_to_baseline(kelmora_resource *head, char **out);
int parental_control_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int pon_counters_to_baseline(kelmora_resource *head, char **out);
int qos_classification_to_baseline(kelmora_resource *head, char **out);
int qos_classification_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int tr069_config_to_baseline(kelmora_resource *head, char **out);
int tr069_config_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int traceroute_to_baseline(kelmora_resource *head, char **out);
int traceroute_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int wan_to_baseline(kelmora_resource *head, char **out);
int wan_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);
int wireless_to_baseline(kelmora_resource *head, char **out);
int wireless_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist *errors);

#endif
