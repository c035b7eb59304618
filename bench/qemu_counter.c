/* A plug-in for qemu's user-mode emulation: counts the instructions between two marks (counting.h) and prints them.
   Linux distributions ship no header for such plug-ins; what this one uses of the interface is declared here. */
#include <inttypes.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#define EXPORT __attribute__((visibility("default")))

struct qemu_plugin_tb;
typedef void (*translated)(uint64_t id, struct qemu_plugin_tb *block);
typedef void (*system_call)(uint64_t id, unsigned cpu, int64_t number, uint64_t a1, uint64_t a2, uint64_t a3,
                            uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7, uint64_t a8);

size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb *block);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb *block, int operation, void *counter,
                                              uint64_t value);
void qemu_plugin_register_vcpu_tb_trans_cb(uint64_t id, translated callback);
void qemu_plugin_register_vcpu_syscall_cb(uint64_t id, system_call callback);
EXPORT int qemu_plugin_install(uint64_t id, const void *info, int argc, char **argv);

EXPORT int qemu_plugin_version = 1;

static const int64_t mark = 4064; /* getppid, on 32-bit MIPS */
static uint64_t executed;         /* instructions, of all blocks so far */
static uint64_t begin;            /* what that was at the mark before; 0 outside of a count */

static void count_block(uint64_t id, struct qemu_plugin_tb *block)
{
    const int add = 0;
    (void)id;
    qemu_plugin_register_vcpu_tb_exec_inline(block, add, &executed, qemu_plugin_tb_n_insns(block));
}

static void see_system_call(uint64_t id, unsigned cpu, int64_t number, uint64_t a1, uint64_t a2, uint64_t a3,
                            uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7, uint64_t a8)
{
    (void)id, (void)cpu, (void)a1, (void)a2, (void)a3, (void)a4, (void)a5, (void)a6, (void)a7, (void)a8;
    if (number != mark)
        return;
    if (begin != 0) {
        printf("%" PRIu64 " ", executed - begin);
        fflush(stdout);
    }
    begin = begin != 0 ? 0 : executed;
}

int qemu_plugin_install(uint64_t id, const void *info, int argc, char **argv)
{
    (void)info, (void)argc, (void)argv;
    qemu_plugin_register_vcpu_tb_trans_cb(id, count_block);
    qemu_plugin_register_vcpu_syscall_cb(id, see_system_call);
    return 0;
}
