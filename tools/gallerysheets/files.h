// tools/gallerysheets/files.h - the files that the gallery reads and writes.
#pragma once

#include <cstdint>
#include <string>

struct errorblock;

// rows holds red, green and blue of each pixel, from the top left.
errorblock *pngsave(const std::string &path, int32_t width, int32_t height,
                    const std::string &rows);

errorblock *bytesload(const std::string &path, std::string *bytes);
errorblock *bytessave(const std::string &path, const std::string &bytes);
