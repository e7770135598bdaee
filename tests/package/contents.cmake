# cmake -DPREFIX=<installed package> -DMACHINE=<folders> -P contents.cmake
# The package holds the headers that it promises and no others, and no file of it names a folder of
# the machine that built it.
cmake_minimum_required(VERSION 3.21)
set(expected
    colorscheme/editor/VTColorModel.h
    colorscheme/editor/VTColorSchemeEditor.h
    colorscheme/manager/ColorSchemeNodeInfo.h
    colorscheme/manager/VTAddColorSchemeGroupDialog.h
    colorscheme/manager/VTColorSchemeManager.h
    colorscheme/manager/VTColorSchemeModel.h
    colorscheme/manager/VTColorSchemeView.h
    colorscheme/manager/VTLineEditWidget.h
    colorscheme/manager/VtColorSchemeNameDelegate.h
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
    vomap/VOTeamKind.h
    vomap/safeFileName.h
    # Made by the build: what each library exports.
    colorscheme/vtcontrolcolorscheme_export.h
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
