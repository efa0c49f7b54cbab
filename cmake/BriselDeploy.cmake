# For programs that link the library statically, or that are shipped without it being installed.

# brisel_deploy_bundle(<program>): copies the resource bundle beside the program, where the library looks for it. Within a
# project that takes the source tree in, the bundle is made for it.
function(brisel_deploy_bundle program)
  get_property(bundle GLOBAL PROPERTY BRISEL_BUNDLE_DIR)
  if(TARGET brisel_bundle)
    get_target_property(recipe brisel_bundle SOURCE_DIR)
    if(NOT EXISTS ${recipe}/node_modules)
      cmake_path(GET recipe PARENT_PATH source)
      message(FATAL_ERROR "brisel_deploy_bundle(${program}): the packages that the resource bundle is made from are not "
                          "there. Install them:\n  ${source}/setup/install.sh assets")
    endif()
    add_dependencies(${program} brisel_bundle)
  elseif(NOT EXISTS ${bundle})
    message(FATAL_ERROR "brisel_deploy_bundle(${program}): BriselFoundation was installed without its resource bundle, "
                        "with BRISEL_BUILD_ASSETS=OFF. There is no ${bundle}")
  endif()
  add_custom_command(
    TARGET ${program}
    POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${bundle} $<TARGET_FILE_DIR:${program}>/BriselFoundation.bundle
    VERBATIM)
endfunction()
