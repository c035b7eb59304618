#include <kelmora_json.h>
#include <kelmora_layout.h>
#include <kelmora_records.h>

#if KELMORA_HOST_PRIVATE_POINTERS != EXPECTED_POINTERS
#error "the package must say what the plug-in was built with"
#endif

int consume(struct kelmora_resource *head, char **out);
int consume(struct kelmora_resource *head, char **out)
{
    const struct kelmora_radio *radio = kelmora_resource_get_data(head);

    return radio->enabled && radio_to_translator(head, out);
}
