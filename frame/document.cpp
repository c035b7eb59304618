#include "frame/document.h"

namespace kelmora {

void Document::release()
{
    json_decref(root_);
    root_ = nullptr;
}

void Document::leak()
{
#ifdef KELMORA_RELEASE_ALL
    release();
#else
    root_ = nullptr;
#endif
}

} // namespace kelmora
