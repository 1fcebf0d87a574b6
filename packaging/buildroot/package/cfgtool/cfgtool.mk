################################################################################
#
# cfgtool
#
################################################################################

# The repository that this tree lies in, without what was built there. Nothing
# is downloaded, so there is no .hash file; no license text comes with it.
CFGTOOL_SITE = $(BR2_EXTERNAL_CFGTOOL_PATH)/../..
CFGTOOL_SITE_METHOD = local
CFGTOOL_VERSION = $(shell cat $(CFGTOOL_SITE)/VERSION)
CFGTOOL_OVERRIDE_SRCDIR_RSYNC_EXCLUSIONS = --exclude=/build --exclude='/build-*' --exclude=/.desk
CFGTOOL_LICENSE = PROPRIETARY
CFGTOOL_REDISTRIBUTE = NO
CFGTOOL_INSTALL_STAGING = YES
CFGTOOL_SUPPORTS_IN_SOURCE_BUILD = NO
CFGTOOL_CONF_OPTS = \
	-DCFGTOOL_CONTROLLER=OFF \
	-DCFGTOOL_TESTS=OFF \
	-DCFGTOOL_WERROR=OFF \
	-DCMAKE_INSTALL_SYSCONFDIR=/etc \
	-DOEM_IANA=$(BR2_PACKAGE_CFGTOOL_OEM_IANA)

CFGTOOL_TARGET_COMPONENTS = tool
ifeq ($(BR2_PACKAGE_CFGTOOL_LINUX_PLATFORM),y)
CFGTOOL_TARGET_COMPONENTS += platform
endif
ifeq ($(BR2_PACKAGE_CFGTOOL_COMPLETION),y)
CFGTOOL_TARGET_COMPONENTS += completion
endif

# $(1): folder, $(2): components
define CFGTOOL_INSTALL_COMPONENTS
	$(foreach component,$(2), \
		$(TARGET_MAKE_ENV) DESTDIR=$(1) $(BR2_CMAKE) --install $(CFGTOOL_BUILDDIR) \
			--prefix /usr --component $(component)$(sep))
endef

define CFGTOOL_INSTALL_STAGING_CMDS
	$(call CFGTOOL_INSTALL_COMPONENTS,$(STAGING_DIR),platform dev)
endef

CFGTOOL_BOARD_PROFILE = $(call qstrip,$(BR2_PACKAGE_CFGTOOL_BOARD_PROFILE))
ifneq ($(CFGTOOL_BOARD_PROFILE),)
define CFGTOOL_INSTALL_BOARD_PROFILE
	$(INSTALL) -D -m 0644 $(CFGTOOL_BOARD_PROFILE) $(TARGET_DIR)/data/cli.conf
endef
endif

define CFGTOOL_INSTALL_TARGET_CMDS
	$(call CFGTOOL_INSTALL_COMPONENTS,$(TARGET_DIR),$(CFGTOOL_TARGET_COMPONENTS))
	$(CFGTOOL_INSTALL_BOARD_PROFILE)
endef

# The folder of the operation log: root writes, group adm reads.
ifeq ($(BR2_PACKAGE_CFGTOOL_LINUX_PLATFORM),y)
define CFGTOOL_PERMISSIONS
	/data/log d 2750 root adm - - - - -
endef
endif

ifeq ($(BR2_PACKAGE_CFGTOOL_ACCOUNTS),y)
define CFGTOOL_USERS
	$(foreach user,1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17, \
		ipmi$(user) $(shell expr 500 + $(user)) ipmi$(user) $(shell expr 500 + $(user)) * - /bin/sh - User $(user) of the controller$(sep))
endef
endif

$(eval $(cmake-package))
