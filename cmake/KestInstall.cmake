# What makes the installed tree complete beside the programs themselves. A tree can be moved as a whole: programs
# find their libraries, and all they read at run time, by the way from their own folder.

set(library_folder "${CMAKE_INSTALL_LIBDIR}/kest")
set(private_libraries kest_base kest_database kest_io kest_sdk kest_toolkit LayerManager)
set_target_properties(${private_libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ${private_libraries} LIBRARY DESTINATION "${library_folder}" NAMELINK_SKIP)

# All that installing copies, and nothing else.
add_custom_target(installables DEPENDS kest kest_manual layerman layerman_manual LayerManager translations icons)
