# The files of an installation below /usr.
set(installed_files
    usr/bin/vireline
    usr/share/applications/vireline.desktop
    usr/share/icons/hicolor/scalable/apps/vireline.svg
    usr/share/icons/hicolor/symbolic/apps/vireline-symbolic.svg
    usr/share/man/man1/vireline.1
    usr/share/metainfo/vireline.metainfo.xml)
foreach(side IN ITEMS 16 22 24 32 48 64 128 256 512)
    list(APPEND installed_files usr/share/icons/hicolor/${side}x${side}/apps/vireline.png)
endforeach()
