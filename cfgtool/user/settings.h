/// The smaller account and identity settings.
#pragma once

#include "ui/invocation.h"

/// -v NAME PRIVILEGE: 2 user, 3 operator, 4 administrator, 15 no access.
command_handler privilege;
/// -v NAME: releases a user locked out after failed logins.
command_handler unlock;
/// -v enable|disable: the controller's check of new passwords.
command_handler passwordcomplexity;
/// -v TEXT, 0 to 64 characters.
command_handler remotemanageid;
/// -v TEXT, 1 to 22 characters: the system serial number in the host's SMBIOS tables.
command_handler serialnumber;
