// The wall of tiles of a large fleet: every tile has its place, but only those near the window have
// contents that are laid out. A change of any other costs next to nothing.

const nearAtFirst = 60; // tiles that are shown before anything has been measured: more than a screen
const wallPause = 50; // milliseconds that tiles may gather before the wall is looked at again
var wallTimer = null;

// The tiles of the filter within one height of the window above and below it.
function nearTiles(list) {
    var tiles = document.querySelectorAll(shownCards);
    if (tiles.length === 0) {
        return [];
    }
    var main = list.parentNode;
    var height = tiles[0].offsetHeight;
    var columns = Math.max(1, Math.round(list.clientWidth / tiles[0].offsetWidth));
    var first = Math.floor((main.scrollTop - main.clientHeight) / height) * columns;
    var last = Math.ceil((main.scrollTop + 2 * main.clientHeight) / height) * columns;
    return [].slice.call(tiles, Math.max(0, first), last);
}

function showNearTiles() {
    clearTimeout(wallTimer);
    wallTimer = null;
    var list = document.querySelector(".wall");
    if (!list || shownCards === null) {
        return;
    }
    var near = nearTiles(list);
    [].slice.call(list.querySelectorAll(".near")).forEach(function (tile) {
        if (near.indexOf(tile) < 0) {
            tile.classList.remove("near");
        }
    });
    near.forEach(function (tile) {
        tile.classList.add("near");
    });
}

function wallHasChanged() {
    if (wallTimer === null && document.querySelector(".wall")) {
        wallTimer = setTimeout(showNearTiles, wallPause);
    }
}

function openWall() {
    $("#main").off("scroll.wall").on("scroll.wall", showNearTiles);
    $(window).off("resize.wall").on("resize.wall", showNearTiles);
}
