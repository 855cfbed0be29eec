# The stories that also run under sway.

# Their outcome depends on the window system: input, windows, menus, displays, reserved edges. script/test runs
# them.
set(sway_stories
    AppActions.AMiddleClickLaunches*
    AppSignals.AnAppThat*
    AutoHide.ComesOutAtAnInnerEdge*
    AutoHide.FindsAPointerThatWasThere*
    AutoHide.WaitsFor*
    AutoHide.WorksAtTwiceTheScale
    BesideTheTiles.IsAnother*
    Click.BringsA*
    Click.Hides*
    Click.Launches*
    DisplayChange.*
    DockPlacement.ComesBack*
    DockPlacement.FindsTheOtherDock*
    DockPlacement.IgnoresAPanel*
    DockPlacement.LeavesOutTheDisplay*
    DockPlacement.MovesAway*
    DockPlacement.ReachesDisplays*
    DockPlacement.ShowsNoDock*
    DockPlacement.StandsBeyond*
    DockPlacement.TellsWhat*
    Drop.OfAnAppAdds*
    Drop.OnTrashTrashes*
    Edges/AutoHideAtEdge.*
    Edges/TileDragAtEdge.*
    Edges/TileMenuAtEdge.*
    Every/FillBeside.*/Sway_*_Plain
    LaunchBounce.LastsUntil*
    PinnedList.FollowsAListThatIsReplaced*
    PinnedList.Overflows*
    PinnedList.Shrinks*
    RunningApps.GetATile*
    RunningApps.HaveOneTile*
    RunningApps.LoseTheirTileWhenTheyQuit
    Session.EndsWithOneLine*
    Session.ListsTheWindows*
    Session.StartsOnce*
    Session.WithADisplay*
    Session.WithoutADisplay*
    SettingsSlider.OfTheIconSizeIsDragged*
    SettingsWindow.ClosesOnEscape*
    SettingsWindow.IsNoApp*
    SettingsWindow.OpenedTwice*
    StatusItem.ClosesItsOwnMenu*
    StatusItem.IsShownByAHost*
    StatusItem.OpensTheSettings*
    StatusItem.PopsItsOwnMenuUp*
    TileDrag.Begins*
    TileDrag.Carries*
    TileDrag.EndsWithEscape*
    TileDrag.GoesOnFar*
    TileDrag.LeavesATile*
    TileDrag.ShowsOnEveryDock
    TileMenu.BringsTheChosen*
    TileMenu.Closes*
    TileMenu.ListsMoreThanTen*
    TileMenu.QuitsAnApp
    TileMenu.RestoresAWindow*
    TourWindow.GoesByKeyboard
    Under/Fill.Launches*/Sway
    Under/Fill.StopsAt*/Sway
    Under/Fill.TakesAWindow*/Sway
    Under/OpenHere.*Display/Sway
    Under/OpenHere.WaitsFor*/Sway
    Under/Summon.BringsAWindow*Others/Sway
    Under/Summon.BringsAnApp*/Sway
    Under/Summon.HidesAnApp*/Sway
    Under/Summon.SummonsThe*/Sway)

# These pass there too, but repeat what the ones above and the X11 runs show.
set(more_sway_stories
    AppActions.AMiddleClickStarts*
    AppSignals.ABadge*
    BesideTheTiles.NothingQuitsWhileAHost*
    Click.On*
    Click.WorksOnEveryDock
    AutoHide.ComesOutForFiles*
    DockPlacement.LeavesOutThePrimary*
    Drop.OfAnApp*
    Drop.OnDownloads*
    Drop.OnTrash*
    LaunchBounce.StartsNoSecond*
    PinnedList.*
    RunningApps.Have*
    RunningApps.LoseTheirTile*
    Session.Logs*
    Session.RunsWith*
    Session.StartsAgain*
    SettingsSlider.*
    SettingsWindow.FollowsADrag*
    SettingsWindow.ShowsTheFactor*
    StatusItem.IsThereForAHost*
    StatusItem.OutlivesTheSessionBus
    TileDrag.MakesTheMirrored*
    TileMenu.*
    Under/OpenHere.KeepsTwo*/Sway
    Under/Summon.Brings*/Sway
    Under/Summon.MovesTheWindow*/Sway)

# This one measures the dock in the moment in which the program cannot draw.
set(other_stories TileMenu.OpensAtOnce*)

list(APPEND more_sway_stories ${sway_stories})
list(JOIN sway_stories : sway_stories)
list(JOIN more_sway_stories : all_sway_stories)
string(APPEND all_sway_stories :-${other_stories})
