// The classes of Core Animation that the program uses, as Apple documents them.
#pragma once

#import <QuartzCore/CADisplayLink.h>
#import <QuartzCore/CALayer.h>
