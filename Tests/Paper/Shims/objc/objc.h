// The basic types of Objective-C, as on a Mac with Apple silicon: BOOL is bool.
#pragma once
#include <stddef.h>
#include <stdint.h>
#ifdef __OBJC__
typedef struct objc_class* Class;
struct objc_object { Class isa; };
typedef struct objc_object* id;
typedef struct objc_selector* SEL;
typedef id (*IMP)(id, SEL, ...);
#endif
typedef bool BOOL;
#define YES __objc_yes
#define NO __objc_no
#ifdef __cplusplus
#define nil nullptr
#define Nil nullptr
#else
#define nil ((void*)0)
#endif
typedef long NSInteger;
typedef unsigned long NSUInteger;
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
