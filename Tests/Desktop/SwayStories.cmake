# The stories that also run under sway.

# Their outcome depends on the window system: input, windows, menus, displays, reserved edges. script/test runs
# them.
set(sway_stories
    AppActions.AMiddleClickLaunches*
    AppSignals.AnAppThat*
    AutoHide.WorksAtTwiceTheScale
    BesideTheTiles.IsAnother*
    Click.BringsA*
    Click.HidesAll*
    Click.Launches*
    DisplayChange.ComesBack*
    DisplayChange.FollowsADisplayThatIsRotated
    DisplayChange.FollowsADisplayThatMoves
    DisplayChange.GivesADock*
    DisplayChange.KeepsTheTiles*
    DisplayChange.LeavesNoDock*
    DisplayChange.ReconcilesOnce*
    DisplayChange.TakesTheDock*
    DockPlacement.FindsTheOtherDock*
    DockPlacement.MovesAway*
    DockPlacement.ReachesDisplays*
    DockPlacement.ShowsNoDock*
    DockPlacement.TellsWhat*
    Drop.FindsNoTarget*
    Drop.IsRefusedInTimeForA*
    Drop.OfAnAppAdds*
    Drop.OnTrashTrashes*
    Edges/AutoHideAtEdge.*
    Edges/TileDragAtEdge.*
    Edges/TileMenuAtEdge.*/left
    Every/FillBeside.*/Sway_left_Hiding_Plain
    PinnedList.FollowsAListThatIsReplaced*
    PinnedList.Shrinks*
    RunningApps.GetATile*
    Session.EndsWithOneLine*
    Session.ListsTheWindows*
    Session.StartsOnce*
    Session.WithADisplay*
    SettingsWindow.ClosesOnEscape*
    SettingsWindow.IsNoApp*
    SettingsWindow.OpenedTwice*
    StatusItem.ClosesItsOwnMenu*
    StatusItem.OpensTheSettingsAndQuits*
    StatusItem.PopsItsOwnMenuUp*
    TileDrag.Begins*
    TileDrag.Carries*
    TileDrag.EndsWithEscape*
    TileDrag.GoesOnFar*
    TileDrag.LeavesATile*
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
    Under/Summon.BringsAWindow*BetweenTheOthers/Sway
    Under/Summon.SummonsThe*/Sway)

# These pass there too, but repeat what the ones above and the X11 runs show.
set(more_sway_stories
    AppActions.AMiddleClickStarts*
    AppSignals.ABadge*
    AutoHide.ComesOutAtAnInnerEdge*
    AutoHide.ComesOutForFiles*
    AutoHide.FindsAPointerThatWasThere*
    AutoHide.HidesWhenFiles*
    AutoHide.HidesWhenTheSource*
    AutoHide.StaysInForWhat*
    AutoHide.WaitsFor*
    BesideTheTiles.NothingQuitsWhileAHost*
    Click.Hides*
    Click.On*
    Click.WorksOnEveryDock
    DisplayChange.*
    DockPlacement.ComesBack*
    DockPlacement.IgnoresAPanel*
    DockPlacement.LeavesOut*
    DockPlacement.StandsBeyond*
    Drop.Is*InTime*
    Drop.IsOff*
    Drop.LetsTheTrash*
    Drop.OfAnApp*
    Drop.OfPlainText*
    Drop.OnDownloads*
    Drop.OnTrash*
    Edges/TileMenuAtEdge.*
    Every/FillBeside.*/Sway_*_Plain
    LaunchBounce.LastsUntil*
    LaunchBounce.StartsNoSecond*
    PinnedList.*
    RunningApps.Have*
    RunningApps.LoseTheirTile*
    Session.Logs*
    Session.RunsWith*
    Session.StartsAgain*
    Session.WithoutADisplay*
    SettingsSlider.*
    SettingsWindow.FollowsADrag*
    SettingsWindow.ShowsTheFactor*
    StatusItem.IsShownByAHost*
    StatusItem.IsThereForAHost*
    StatusItem.OpensTheSettings*
    StatusItem.OutlivesTheSessionBus
    TileDrag.MakesTheMirrored*
    TileDrag.ShowsOnEveryDock
    TileMenu.*
    Under/OpenHere.KeepsTwo*/Sway
    Under/OpenHere.WaitsFor*/Sway
    Under/Summon.Brings*/Sway
    Under/Summon.HidesAnApp*/Sway
    Under/Summon.MovesTheWindow*/Sway)

# This one measures the dock in the moment in which the program cannot draw.
set(other_stories TileMenu.OpensAtOnce*)

list(APPEND more_sway_stories ${sway_stories})
list(JOIN sway_stories : sway_stories)
list(JOIN more_sway_stories : all_sway_stories)
string(APPEND all_sway_stories :-${other_stories})
