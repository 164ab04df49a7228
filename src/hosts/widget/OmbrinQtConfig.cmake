include(CMakeFindDependencyMacro)
find_dependency(Ombrin) # whose header says what is exported
find_dependency(Qt6 COMPONENTS Widgets)
include(${CMAKE_CURRENT_LIST_DIR}/OmbrinQtTargets.cmake)
