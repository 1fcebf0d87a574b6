################################################################################
#
# cfgtool
#
################################################################################

# The repository that this tree lies in, without what was built there.
CFGTOOL_VERSION = 0.1.0
CFGTOOL_SITE = $(BR2_EXTERNAL_CFGTOOL_PATH)/../..
CFGTOOL_SITE_METHOD = local
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

# $(1): folder, $(2): components
define CFGTOOL_INSTALL_COMPONENTS
	$(foreach component,$(2), \
		DESTDIR=$(1) $(BR2_CMAKE) --install $(CFGTOOL_BUILDDIR) --prefix /usr --component $(component)$(sep))
endef

define CFGTOOL_INSTALL_STAGING_CMDS
	$(call CFGTOOL_INSTALL_COMPONENTS,$(STAGING_DIR),platform dev)
endef

define CFGTOOL_INSTALL_TARGET_CMDS
	$(call CFGTOOL_INSTALL_COMPONENTS,$(TARGET_DIR),$(CFGTOOL_TARGET_COMPONENTS))
endef

$(eval $(cmake-package))
