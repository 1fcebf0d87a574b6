SUMMARY = "Configuration command of a board-management controller"
LICENSE = "CLOSED"

inherit cmake externalsrc

# The repository that this file lies in, wherever a layer has a link to it.
EXTERNALSRC ?= "${@os.path.realpath(os.path.join(os.path.realpath(d.getVar('FILE')), '../../..'))}"

OEM_IANA ?= "32473"
EXTRA_OECMAKE = "-DCFGTOOL_CONTROLLER=OFF -DCFGTOOL_TESTS=OFF -DCFGTOOL_WERROR=OFF -DCMAKE_SKIP_INSTALL_RPATH=ON \
                 -DOEM_IANA=${OEM_IANA}"

# A board's own library is a package that says RPROVIDES, RCONFLICTS and RREPLACES libzentro-platform1.
PACKAGES =+ "libzentro-platform1 platform-check"
FILES:libzentro-platform1 = "${libdir}/libzentro_platform.so.1 ${sysconfdir}/logrotate.d ${nonarch_libdir}/tmpfiles.d"
CONFFILES:libzentro-platform1 = "${sysconfdir}/logrotate.d/zentro-platform"
FILES:platform-check = "${bindir}/platform-check ${mandir}/man1/platform-check.1"
FILES:${PN}-dev = "${includedir} ${libdir}/libzentro_platform.so ${libdir}/cmake ${libdir}/pkgconfig"
FILES:${PN}-doc = "${datadir}"
FILES:${PN} = "${bindir}"
