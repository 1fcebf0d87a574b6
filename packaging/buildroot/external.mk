include $(sort $(wildcard $(BR2_EXTERNAL_CFGTOOL_PATH)/package/*/*.mk))
