#include "platform/local_files.h"

namespace ombrin {

void WriteToFile(LocalFiles& files, Log& log, const std::string& path, std::string_view bytes,
                 LocalFiles::WriteMode mode) {
    if (!files.Write(path, bytes, mode))
        log.TraceMessage("Error: occured in module WriteToFile(), CreateFile() failed");
}

} // namespace ombrin
