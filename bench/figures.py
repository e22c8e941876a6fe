"""What bench/run measures and what is asked of it: the programs it starts and a row for every figure of the table."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Program:
    """A benchmark; `needs` are programs of the build that a Python one is given."""

    name: str
    rounds: int = 3  # runs of which the median counts
    needs: tuple = ()
    timeout: int = 180  # seconds a run


PROGRAMS = (
    Program("group_numbering_bench", rounds=5),
    Program("ini_change_bench", rounds=5),
    Program("dxf_read_bench", rounds=5),
    Program("dxf_write_bench", rounds=5),
    Program("drg_bench"),
    Program("nearest_bench"),
    Program("snip_bench"),
    Program("paint_bench"),
    Program("diagram_bench"),
    Program("boundary_bench"),
    Program("roof_skeleton_bench"),
    Program("elevation_bench"),
    Program("symbol_tree_bench"),
    Program("general_plan_bench"),
    Program("sectional_bench"),
    Program("quotas_against_python.py", rounds=1, needs=("brevan-batch",)),
    Program("labelled_holes_bench"),
    Program("desktop_view_bench", rounds=2),
    Program("preview_bench"),
    Program("startup_against_qt.py", rounds=1, needs=("brevan-batch", "empty_qt")),
    Program("startup_of_desktop.py", rounds=1, needs=("brevan",)),
    Program("parts_against_ezdxf.py", rounds=1, needs=("brevan-batch",)),
    Program("tables_against_python.py", rounds=1, needs=("brevan-batch",)),
    Program("dxf_against_ezdxf.py", rounds=1, needs=("brevan-batch",)),
    Program("township_against_shapely.py", rounds=1, needs=("brevan-batch",), timeout=600),
)


@dataclass(frozen=True)
class Figure:
    """A row of the table: a benchmark beside one of its peers, at all its sizes.

    What is asked, each None for nothing: that our time be at most `ratio` times the peer's, at most `seconds`, at most
    `over` seconds above the peer's, at every size; that it take at most so many `megabytes`; and that it grow with at
    most this power of the size.
    """

    program: str
    benchmark: str
    peer: str | None
    title: str
    counted: str  # what the size counts
    ratio: float | None = None
    seconds: float | None = None
    over: float | None = None
    megabytes: float | None = None
    growth: float | None = None


def _figures(program, *rows):
    return tuple(Figure(program, *row[:-1], **row[-1]) for row in rows)


_SCAN = "scan over the lines"

FIGURES = (
    *_figures("group_numbering_bench", (
        "numberPart", "walk over the names", "number a part among the groups", "groups", {"seconds": 1e-4})),
    *_figures(
        "ini_change_bench",
        ("changeOneRecord/firstInOpenFile", _SCAN, "INI: change the first record", "records", {"ratio": 2}),
        ("changeOneRecord/middleInOpenFile", _SCAN, "INI: change a middle record", "records", {"ratio": 2}),
        ("changeOneRecord/openingTheFile", _SCAN, "INI: open and change a record", "records", {}),
        ("countRecords", "standard hash table", "INI: open and ask for every record", "records", {})),
    *_figures(
        "dxf_read_bench",
        ("readDxf", "mapping and parsing", "DXF: read", "primitives", {"ratio": 3}),
        ("readDxf", "file of bare numbers", "DXF: read", "primitives", {})),
    *_figures("dxf_write_bench", ("writeDxf", "bare numbers", "DXF: write", "primitives", {"ratio": 1.5})),
    *_figures(
        "drg_bench",
        ("openDrg", "SQLite alone", "drawing file: open", "primitives", {}),
        ("saveDrg", "SQLite alone", "drawing file: save", "primitives", {})),
    *_figures(
        "nearest_bench",
        ("nearest/loaded", "Boost R-tree", "pick the nearest", "primitives", {"seconds": 1e-5}),
        ("nearest/loaded", "scan of all", "pick the nearest", "primitives", {}),
        ("nearest/grown", "Boost R-tree", "pick the nearest after as many inserts", "primitives", {"seconds": 1e-5}),
        ("nearest/grown", "scan of all", "pick the nearest after as many inserts", "primitives", {})),
    *_figures("snip_bench", ("snip", "cutting alone", "snip along a window", "lines", {"ratio": 3})),
    *_figures("paint_bench", ("paintPrimitives", "Qt alone", "paint a picture", "lines", {})),
    *_figures(
        "diagram_bench",
        ("traceInDrawingOfLines", None, "diagram of one figure", "lines of the drawing", {"growth": 0.1}),
        ("traceFigureOfParcels", None, "diagram, figure and surroundings growing", "primitives copied",
         {"growth": 1.1})),
    *_figures(
        "boundary_bench",
        ("traceParcels", "GEOS", "trace every parcel of a township", "parcels", {"ratio": 1, "growth": 1.1}),
        ("traceParcels", "CGAL", "trace every parcel of a township", "parcels", {"ratio": 1, "growth": 1.1})),
    *_figures(
        "elevation_bench",
        ("elevation/oneByOne", "picks alone", "elevation, windows and walls picked", "windows", {"over": 0.05}),
        ("elevation/byTheWall", "picks alone", "elevation, all windows by their wall", "windows", {"over": 0.05})),
    *_figures(
        "symbol_tree_bench",
        ("setUp", None, "set up the symbol library", "files", {"seconds": 0.1}),
        ("search", None, "search in it, a key", "files", {"seconds": 0.02})),
    *_figures("roof_skeleton_bench", ("seamsOfRoof", "CGAL", "ridges, hips and valleys of a roof", "corners", {"ratio": 3})),
    *_figures(
        "general_plan_bench",
        ("areaTable", None, "general plan: number erven and list their areas", "erven", {"seconds": 2, "growth": 1.1}),
        ("dimensions", "tracing alone", "general plan: dimension every boundary", "erven",
         {"ratio": 3, "seconds": 2.5, "growth": 1.1}),
        ("escape", None, "general plan: an Escape while dimensions are made", "erven", {"seconds": 0.1})),
    *_figures(
        "sectional_bench",
        ("loadList", None, "sectional plan: load a list", "sections", {"seconds": 1, "growth": 1.1}),
        ("adjustQuotas", None, "sectional plan: adjust and list the quotas", "sections", {"seconds": 0.05, "growth": 1.1}),
        ("drawSchedule", None, "sectional plan: a sheet of the quota schedule", "sections", {"seconds": 0.1, "growth": 0.1}),
        ("readListing", None, "control points: read a listing", "points", {"seconds": 1, "growth": 1.1})),
    *_figures("quotas_against_python.py", (
        "quotas", "csv and decimal", "sectional plan: load, adjust and save a list, whole program", "sections", {})),
    *_figures(
        "desktop_view_bench",
        ("zoomAll", "Qt alone", "desktop: zoom all", "lines", {"seconds": 1.5}),
        ("zoomStep", None, "desktop: zoom a step", "lines", {}),
        ("panStep", None, "desktop: pan a step, all of the strip", "lines", {"seconds": 0.15}),
        ("dragFrame", None, "desktop: a frame while dragging", "lines", {"seconds": 1 / 30}),
        ("longestDragFrame", None, "desktop: the longest frame while dragging", "lines", {})),
    *_figures("preview_bench", (
        "gearPreview", None, "desktop: a key in the dialog of gears, to its preview", "teeth",
        {"seconds": 0.1, "growth": 1.1})),
    *_figures("startup_against_qt.py", (
        "firstDrawing", "empty Qt program", "batch tool: start to first drawing", "bolt", {"over": 0.025})),
    *_figures(
        "startup_of_desktop.py",
        ("window", "loading alone", "desktop: start to the window", "window", {"seconds": 0.5}),
        ("lineDrawn", "loading alone", "desktop: start to the first typed line", "line", {})),
    *_figures(
        "parts_against_ezdxf.py",
        ("bolts", "ezdxf", "bolts by one script, to DXF", "bolts", {"ratio": 1 / 12}),
        ("flanges", "ezdxf", "flanges by one script, to DXF", "flanges", {"ratio": 1 / 10}),
        ("gears", "ezdxf", "ten gears by one script, to DXF", "teeth", {"ratio": 1 / 10, "growth": 1.1}),
        ("sheetOfWelds", "ezdxf", "a thousand welds by one script, to DXF", "welds", {"seconds": 0.3}),
        ("welds", "single bolts", "welds, beside as many bolts by a command each", "welds", {"ratio": 2}),
        ("shafts", "bolts", "shafts, beside as many bolts", "shafts", {"ratio": 1.2, "growth": 1.1})),
    *_figures("labelled_holes_bench", (
        "addAllHoles", None, "coordinate table: add all holes", "primitives", {"seconds": 0.05, "growth": 1.1})),
    *_figures(
        "tables_against_python.py",
        ("importTable", "python csv", "table of seven columns: import, whole program", "rows",
         {"seconds": 0.2, "growth": 1.1}),
        ("exportTable", "python csv", "table: import and export, whole program", "rows",
         {"seconds": 0.4, "growth": 1.1}),
        ("drawTable", "ezdxf", "table: import, draw, to DXF, whole program", "rows",
         {"ratio": 0.1, "seconds": 0.5, "growth": 1.1})),
    *_figures("dxf_against_ezdxf.py", (
        "readAndWrite", "ezdxf", "DXF: read and write, whole program", "primitives", {})),
    *_figures("township_against_shapely.py", (
        "dimensionsToDxf", "shapely and ezdxf", "general plan: dimension every boundary by script, to DXF", "erven",
        {"megabytes": 400, "growth": 1.1}), (
        "areasToDxf", "shapely and ezdxf", "general plan: number and list erven by script, to DXF", "erven",
        {"megabytes": 400, "growth": 1.1})),
)
