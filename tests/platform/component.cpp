// A component that can be entered, and refuses to be taken out.
#include <cstdint>

extern "C" std::int32_t DllRegisterServer() { return 0; }
extern "C" std::int32_t DllUnregisterServer() { return 1; }
