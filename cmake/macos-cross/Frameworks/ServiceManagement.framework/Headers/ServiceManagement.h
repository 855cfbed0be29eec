// The classes of Service Management that the program uses, as Apple documents them.
#pragma once

#import <ServiceManagement/SMAppService.h>
