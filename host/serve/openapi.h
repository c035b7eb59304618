#ifndef KELMORA_HOST_SERVE_OPENAPI_H
#define KELMORA_HOST_SERVE_OPENAPI_H

#include <string>

namespace kelmora_host {

/// The routes as an OpenAPI 3.1 document: those of records for each resource by itself, with its schemas.
[[nodiscard]] std::string openapi();

} // namespace kelmora_host

#endif
