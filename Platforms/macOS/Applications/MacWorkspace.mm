#include "Applications/MacWorkspace.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Foundation/DevLog.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

void MacWorkspace::openApplication(const std::string&, const FileURL& url) {
    attempt("openApplicationAtURL", [&] {
        NSWorkspaceOpenConfiguration* const configuration =
            [NSWorkspaceOpenConfiguration configuration];
        configuration.activates = YES;
        [NSWorkspace.sharedWorkspace openApplicationAtURL:toNSURL(url)
                                            configuration:configuration
                                        completionHandler:nil];
    });
}

void MacWorkspace::open(const FileURL& url) {
    attempt("openURL", [&] { [NSWorkspace.sharedWorkspace openURL:toNSURL(url)]; });
}

void MacWorkspace::reveal(const std::vector<FileURL>& urls) {
    attempt("activateFileViewerSelectingURLs", [&] {
        NSMutableArray<NSURL*>* const files = [NSMutableArray array];
        for (const FileURL& url : urls)
            [files addObject:toNSURL(url)];
        [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:files];
    });
}

void MacWorkspace::openSystemSettings(const std::string& paneURL) {
    attempt("openURL", [&] {
        NSURL* const url = [NSURL URLWithString:toNSString(paneURL)];
        if (url == nil || ![NSWorkspace.sharedWorkspace openURL:url])
            DevLog::write("no pane of the system's settings for " + paneURL);
    });
}

}
