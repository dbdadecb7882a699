# cpack: all that is installed as one Debian package (scripts/package). Which libraries the programs are linked with,
# dpkg-shlibdeps finds out.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tzassistant)
set(CPACK_PACKAGE_VENDOR "TzAssistant")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${TZ_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 2)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR})

# Loaded when first used, so that nothing else names them: servers, passwords, workbooks, printers. Then the faces of
# texts, headings and pages, and the toolkit's own texts in Chinese.
set(TZ_LOADED libpq5 libsodium23 libxlsxwriter4 libcups2)
set(TZ_FACES fonts-noto-cjk fonts-arphic-uming fonts-arphic-ukai)
list(JOIN TZ_LOADED ", " TZ_LOADED)
list(JOIN TZ_FACES ", " TZ_FACES)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${TZ_LOADED}, ${TZ_FACES}, qt6-translations-l10n")
# Reports page by page on a terminal.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS less)
# Printers, ledgers on a server of one's own, Chinese input, screen readers, Wayland, completion: most desktops bring
# them.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups, postgresql, fcitx5-frontend-qt6, at-spi2-core, qt6-wayland, bash-completion")

set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Auxiliary accounting for Chinese enterprises (企业会计辅助核算)
Who owes what, and where the money went: detail ledgers, balance tables and
general ledgers along persons, departments, projects and units (customers and
suppliers). Ledgers are files, or databases on a PostgreSQL server. Reports are
shown in windows, printed in pages, exported, or printed by the command line.
A sample company is included to look around in.

个人、部门、项目、单位（客户与供应商）的明细帐、余额表和总帐：谁欠多少，钱花在
哪里。帐套是一个文件，也可以在 PostgreSQL 服务器上。帐表在窗口里查看，分页打印，
输出 PDF 和电子表格；命令行上是同样的帐表。附有示例单位，可以随便翻看。")
include(CPack)
