# cmake -DPREFIX=<installed package> -DREPOSITORY=<folder> -DMACHINE=<folders> -P contents.cmake
# The package holds the headers that it promises and no others, a library's other headers say by their
# names that they are not for hosts, and no file of the package names a folder of the machine that
# built it.
cmake_minimum_required(VERSION 3.21)
set(expected
    colorscheme/editor/VTColorModel.h
    colorscheme/editor/VTColorSchemeEditor.h
    colorscheme/manager/ColorSchemeNodeInfo.h
    colorscheme/manager/VTAddColorSchemeGroupDialog.h
    colorscheme/manager/VTColorSchemeManager.h
    colorscheme/manager/VTColorSchemeModel.h
    colorscheme/manager/VTColorSchemeView.h
    colorscheme/manager/VTDiscardedSchemes.h
    colorscheme/manager/VTLineEditWidget.h
    colorscheme/manager/VtColorSchemeNameDelegate.h
    colorscheme/model/VTDialogLayout.h
    colorscheme/model/colorConversion.h
    colorscheme/model/colorRampPreviewPixmap.h
    colorscheme/picker/VTColorSchemeComboBox.h
    colorscheme/picker/VTColorSchemeGroupButton.h
    colorscheme/picker/VTColorSchemeGroupMenu.h
    colorscheme/picker/VTColorSchemeMenu.h
    colorscheme/picker/VTSchemeMenuActionWidget.h
    vobase/VOString.h
    vomap/VOColorRamp.h
    vomap/VOColorRampContainer.h
    vomap/VOColorScheme.h
    vomap/VOColorSchemeGroup.h
    vomap/VOColorSchemeManager.h
    vomap/VOColorSchemeTeam.h
    vomap/VOEvenColorRamp.h
    vomap/VOPredefineColorRamp.h
    vomap/VORandomColorRamp.h
    vomap/VORandomColorRampForHsv.h
    vomap/rgb_color.h
    vtcontrolbase/VTColorMenu.h
    vtgiscore/VTApplication.h
    vtgiscore/VTSymbolUtils.h
    # For hosts: from the toolkit's strings to those of the records and back.
    vomap/VOStringConversion.h
    # What the picker is built on.
    colorscheme/picker/VTColorSchemeButton.h
    # For hosts: which scheme, what changed, what went wrong.
    vomap/VOColorSchemeId.h
    vomap/VOColorSchemeMoves.h
    vomap/VOColorSchemeNotifier.h
    vomap/VOStoreHistory.h
    vomap/VOStoreProblem.h
    vomap/VOTeamKind.h
    vomap/safeFileName.h
    # Made by the build: the version, and what each library exports.
    colorscheme/vtcontrolcolorscheme_export.h
    vobase/VOVersion.h
    vobase/vobase_export.h
    vomap/vomap_export.h
    vtcontrolbase/vtcontrolbase_export.h
    vtgiscore/vtgiscore_export.h)
file(GLOB_RECURSE found RELATIVE ${PREFIX}/include ${PREFIX}/include/*)
foreach(header IN LISTS expected)
    if(NOT header IN_LIST found)
        message(SEND_ERROR "not installed: ${header}")
    endif()
endforeach()
foreach(header IN LISTS found)
    if(NOT header IN_LIST expected)
        message(SEND_ERROR "installed, but not promised: ${header}")
    endif()
endforeach()

# Inner headers end in "_p.h", and only they do.
file(GLOB lists RELATIVE ${REPOSITORY} ${REPOSITORY}/*/CMakeLists.txt)
set(libraries 0)
foreach(list IN LISTS lists)
    file(STRINGS ${REPOSITORY}/${list} calls REGEX "^vt_add_library\\(")
    if(NOT calls)
        continue()
    endif()
    math(EXPR libraries "${libraries} + 1")
    get_filename_component(folder ${list} DIRECTORY)
    file(GLOB_RECURSE headers RELATIVE ${REPOSITORY} ${REPOSITORY}/${folder}/*.h)
    foreach(header IN LISTS headers)
        if(header MATCHES "_p\\.h$" AND header IN_LIST found)
            message(SEND_ERROR "an inner header is installed: ${header}")
        elseif(NOT header MATCHES "_p\\.h$" AND NOT header IN_LIST found)
            message(SEND_ERROR "neither installed nor called an inner header: ${header}")
        endif()
    endforeach()
endforeach()
if(libraries LESS 5)
    message(SEND_ERROR "only ${libraries} libraries were looked at")
endif()
foreach(header IN LISTS found)
    file(STRINGS ${PREFIX}/include/${header} inner REGEX "^#include \"[^\"]*_p\\.h\"")
    if(inner)
        message(SEND_ERROR "${header} includes what is not installed: ${inner}")
    endif()
endforeach()

file(GLOB_RECURSE texts ${PREFIX}/include/* ${PREFIX}/*.cmake ${PREFIX}/*.pc)
foreach(text IN LISTS texts)
    file(READ ${text} content)
    foreach(folder IN LISTS MACHINE)
        string(FIND "${content}" ${folder} position)
        if(NOT position EQUAL -1)
            message(SEND_ERROR "${text} names ${folder}")
        endif()
    endforeach()
endforeach()

foreach(file IN ITEMS
        share/vtcontrolcolorscheme/resources/warning.gif
        share/doc/vtcontrolcolorscheme/README.md)
    if(NOT EXISTS ${PREFIX}/${file})
        message(SEND_ERROR "not installed: ${file}")
    endif()
endforeach()
