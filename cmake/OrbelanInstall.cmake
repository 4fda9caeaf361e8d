# What `cmake --install` puts where a host application finds it with
# find_package(Orbelan): the component's libraries (Orbelan::Viewer,
# Orbelan::Login), the headers of its host API, the package files, and the
# two programs.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(ORBELAN_COMPONENT_LIBRARIES
  orbelan_wire orbelan_messages orbelan_net orbelan_model orbelan_projection
  orbelan_ui orbelan_view orbelan_render orbelan_raster orbelan_query orbelan_session orbelan_configuration
  orbelan_viewer orbelan_login)

install(TARGETS ${ORBELAN_COMPONENT_LIBRARIES}
  EXPORT OrbelanTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS orbelan-viewer orbelan-server RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# The host API: the Viewer and the login control, the Viewer's property bags,
# their message-box services, the view it reports and the map model it hands out.
install(FILES
  src/viewer/Viewer.h src/viewer/PropertyBag.h src/viewer/SettingsPropertyBag.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/viewer)
install(FILES src/login/login.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/login)
install(FILES src/ui/UiServices.h src/ui/WidgetUiServices.h src/ui/ScriptedUiServices.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ui)
install(FILES src/view/Viewport.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/view)
install(FILES src/projection/CProjection.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/projection)
install(DIRECTORY src/model/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/model FILES_MATCHING PATTERN "*.h")

set(ORBELAN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Orbelan)
install(EXPORT OrbelanTargets NAMESPACE Orbelan:: DESTINATION ${ORBELAN_CMAKE_DIR})
configure_package_config_file(cmake/OrbelanConfig.cmake.in ${PROJECT_BINARY_DIR}/OrbelanConfig.cmake
  INSTALL_DESTINATION ${ORBELAN_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrbelanConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/OrbelanConfig.cmake ${PROJECT_BINARY_DIR}/OrbelanConfigVersion.cmake
  DESTINATION ${ORBELAN_CMAKE_DIR})
