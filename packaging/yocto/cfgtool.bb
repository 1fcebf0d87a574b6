SUMMARY = "Configuration command of a board-management controller"
DESCRIPTION = "An operator who is logged in to an IPMI management controller types one cfgtool command for each \
change: fans, power, boot, users, network, traps, sensors, firmware."
SECTION = "admin"
# All rights reserved: no license text comes with the sources.
LICENSE = "CLOSED"

inherit cmake externalsrc useradd bash-completion

# The repository that this file lies in, wherever a layer has a link to it.
EXTERNALSRC ?= "${@os.path.realpath(os.path.join(os.path.realpath(d.getVar('FILE')), '../../..'))}"
PV = "${@version_of_sources(d)}"

def version_of_sources(d):
    path = os.path.join(d.getVar('EXTERNALSRC'), 'VERSION')
    bb.parse.mark_dependency(d, path)
    with open(path) as file:
        return file.read().strip()

CFGTOOL_OEM_IANA ?= "32473"
# The board profile that the image gets as /data/cli.conf.
CFGTOOL_BOARD_PROFILE ?= "${S}/ipmcd/disk/data/cli.conf"

EXTRA_OECMAKE = "-DCFGTOOL_CONTROLLER=OFF -DCFGTOOL_TESTS=OFF -DCFGTOOL_WERROR=OFF -DCMAKE_SKIP_INSTALL_RPATH=ON \
                 -DOEM_IANA=${CFGTOOL_OEM_IANA}"
# Only glibc has been tried.
COMPATIBLE_HOST:libc-musl = "null"

do_install:append() {
    install -d ${D}/data
    install -m 0644 ${CFGTOOL_BOARD_PROFILE} ${D}/data/cli.conf
    install -d -m 2750 -g adm ${D}/data/log
}

PACKAGES =+ "libzentro-platform1 platform-check ${PN}-conf ${PN}-accounts \
             ${PN}-completion ${PN}-zsh-completion ${PN}-fish-completion"
RRECOMMENDS:${PN} = "${PN}-conf ${PN}-accounts"

# A board's own library is a package that says RPROVIDES, RCONFLICTS and RREPLACES libzentro-platform1.
FILES:libzentro-platform1 = "${libdir}/libzentro_platform.so.* ${sysconfdir}/logrotate.d ${nonarch_libdir}/tmpfiles.d \
                             /data/log"
CONFFILES:libzentro-platform1 = "${sysconfdir}/logrotate.d/zentro-platform"
RDEPENDS:libzentro-platform1 = "tar"
FILES:platform-check = "${bindir}/platform-check"

FILES:${PN}-conf = "/data/cli.conf"
CONFFILES:${PN}-conf = "/data/cli.conf"

# User N of the controller is account 500 + N. How they log in is the image's to say: these have no password.
ALLOW_EMPTY:${PN}-accounts = "1"
USERADD_PACKAGES = "${PN}-accounts"
USERADD_PARAM:${PN}-accounts = "${@'; '.join('--uid %d --user-group --no-create-home --home-dir / --shell /bin/sh ipmi%d' % \
                                             (500 + user, user) for user in range(1, 18))}"

# Schemas of documents.
FILES:${PN}-doc += "${datadir}/cfgtool"

# What the completions of the shells share, and those that have no class of their own.
FILES:${PN}-completion = "${datadir}/cfgtool/complete* ${datadir}/cfgtool/dataitems ${datadir}/cfgtool/state-words \
                           ${datadir}/cfgtool/values"
FILES:${PN}-zsh-completion = "${datadir}/zsh"
FILES:${PN}-fish-completion = "${datadir}/fish"
RDEPENDS:${PN}-bash-completion += "${PN}-completion"
RDEPENDS:${PN}-zsh-completion = "${PN}-completion"
RDEPENDS:${PN}-fish-completion = "${PN}-completion"
