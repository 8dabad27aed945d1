// The queue of pending window messages and the modifier state seen by the message handler.
#include "platform/posix/message_queue.h"

#include "platform/platform.h"

// Large enough for a burst of input between two passes; mouse moves are merged.
constexpr int QUEUE_SIZE = 512;

static PlatMessage queue[QUEUE_SIZE];
static int queue_head = 0;   // index of the oldest pending message
static int queue_count = 0;
static uint32_t held_now = 0;  // modifiers of the last message taken

void plat_post_message(const PlatMessage& msg) {
    if (queue_count > 0 && msg.message == PLAT_MSG_MOUSEMOVE) {
        PlatMessage& last = queue[(queue_head + queue_count - 1) % QUEUE_SIZE];
        if (last.message == PLAT_MSG_MOUSEMOVE) {  // only the newest position matters
            last = msg;
            return;
        }
    }
    if (queue_count == QUEUE_SIZE) return;  // a full queue drops new input
    queue[(queue_head + queue_count) % QUEUE_SIZE] = msg;
    ++queue_count;
}

bool plat_peek_message(PlatMessage* msg) {
    if (queue_count == 0) plat_gather_events();
    if (queue_count == 0) return false;
    *msg = queue[queue_head];
    queue_head = (queue_head + 1) % QUEUE_SIZE;
    --queue_count;
    held_now = msg->held;
    return true;
}

bool plat_wait_input(int64_t us) { return queue_count > 0 || plat_wait_events(us); }

void plat_reset_messages() {
    queue_head = queue_count = 0;
    held_now = 0;
}

bool plat_key_held(uint32_t virtual_key) {
    if (virtual_key == PLAT_VK_SHIFT) return (held_now & PLAT_HELD_SHIFT) != 0;
    if (virtual_key == PLAT_VK_CONTROL) return (held_now & PLAT_HELD_CTRL) != 0;
    return false;
}
