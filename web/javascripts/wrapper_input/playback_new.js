// The page of a new playback: any category, on the units that are online.

(function () {
    function showZone(id) {
        showCards((item) => item.status === 2, id);
    }

    sourcePage({
        category: radioCategory,
        beside: [zoneSelect(showZone), selectionButtons()],
        replayed: "type_playlist",
        action: "action_pause",
        own: zoneOptions(),
    });
    dressZoneSelect(false);
    showZone(0);
    wrapperLoadSelectKelpaList();
    wrapperLoadPlaybackZoneList();
    selectPlaylist(radioCategory);
})();
