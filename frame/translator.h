/// All that a translator unit needs of the frame.
#ifndef KELMORA_FRAME_TRANSLATOR_H
#define KELMORA_FRAME_TRANSLATOR_H

#include "frame/chain.h"   // IWYU pragma: export
#include "frame/decoder.h" // IWYU pragma: export
#include "frame/encode.h"  // IWYU pragma: export

#include "kelmora_json.h" // IWYU pragma: export

#endif
