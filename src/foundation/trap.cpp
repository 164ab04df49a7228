#include "foundation/trap.h"

#include "foundation/text.h"

#include <new>

namespace ombrin {

Failure CurrentFailure() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return {error.Number(), error.what()};
    } catch (const std::bad_alloc&) {
        return {static_cast<int>(ErrorNumber::OutOfMemory), "Out of memory"};
    } catch (const std::exception& error) {
        return {static_cast<int>(ErrorNumber::InvalidProcedureCall), error.what()};
    } catch (...) {
        return {static_cast<int>(ErrorNumber::InvalidProcedureCall), "unknown exception"};
    }
}

void Trap::Report(std::string_view routine, std::string_view file, const Failure& failure, bool showBox) {
    const std::string place = file.empty() ? std::string() : Join(" in file ", file);
    log.LogError(Join("Error: occured in module ", routine, "()", place, ".  Error number: ",
                      std::to_string(failure.number), ",  Error Line: 0,  Description: ", failure.description),
                 showBox);
}

} // namespace ombrin
