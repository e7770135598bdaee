#!/usr/bin/env python3
"""Make the map window's data files from the arrays and shapes that Debian ships.

    apt-get install python3-numpy python3-geopandas python-matplotlib-data
    /usr/bin/python3 tools/convert_map_data.py apps/mapviewer/data

Writes relief.asc, terrain.asc and countries.geojson into the named folder. The files are kept in
the repository, so this runs only when they are to be remade; the result is the same each time.
"""

import json
import pathlib
import sys

import geopandas
import numpy as np

SAMPLES = pathlib.Path("/usr/share/matplotlib/mpl-data/sample_data")
COUNTRIES = pathlib.Path(geopandas.__file__).parent / "datasets/naturalearth_lowres/naturalearth_lowres.shp"

NODATA = -9999
# The relief comes on a Mercator grid: 2 minutes of longitude by 2 minutes times the cosine of the
# latitude. An ASCII grid has square cells, so it is resampled to one minute each way, which is a
# little finer than its finer side.
RELIEF_CELL = 1.0 / 60.0
COORDINATE_DECIMALS = 4  # about 11 m, far below the generalisation of a 1:110 million layer
# Below this the inhabitants are the crews of research stations, and a rate per head says nothing.
LEAST_POPULATION_FOR_A_RATE = 5000


def write_grid(path, values, west, south, cell):
    """Rows run from north to south, as the format has them; heights are whole metres."""
    rows, columns = values.shape
    with open(path, "w", encoding="ascii", newline="\n") as file:
        file.write(f"ncols {columns}\nnrows {rows}\n")
        file.write(f"xllcorner {west:.10g}\nyllcorner {south:.10g}\n")
        file.write(f"cellsize {cell:.15g}\nNODATA_value {NODATA}\n")
        for row in values:
            file.write(" ".join(str(int(round(float(value)))) for value in row) + "\n")


def bilinear(values, ys, xs, new_ys, new_xs):
    """Along each row first, then along each column; all coordinates ascend."""
    along_x = np.array([np.interp(new_xs, xs, row) for row in values])
    return np.array([np.interp(new_ys, ys, column) for column in along_x.T]).T


def convert_relief(folder):
    data = np.load(SAMPLES / "topobathy.npz")
    longitudes = data["longitude"].astype(float) - 360.0
    latitudes = data["latitude"].astype(float)
    west = np.ceil(longitudes[0] / RELIEF_CELL) * RELIEF_CELL
    south = np.ceil(latitudes[0] / RELIEF_CELL) * RELIEF_CELL
    columns = int((longitudes[-1] - west) / RELIEF_CELL)
    rows = int((latitudes[-1] - south) / RELIEF_CELL)
    xs = west + (np.arange(columns) + 0.5) * RELIEF_CELL
    ys = south + (np.arange(rows) + 0.5) * RELIEF_CELL
    values = bilinear(data["topo"].astype(float), latitudes, longitudes, ys, xs)
    write_grid(folder / "relief.asc", values[::-1], west, south, RELIEF_CELL)


def convert_terrain(folder):
    data = np.load(SAMPLES / "jacksboro_fault_dem.npz")
    # The file's first row is the northern one and its "ymax" is the southern edge.
    south = min(float(data["ymin"]), float(data["ymax"]))
    write_grid(folder / "terrain.asc", data["elevation"], float(data["xmin"]), south, float(data["dx"]))


def rounded_ring(ring):
    points = [[round(x, COORDINATE_DECIMALS), round(y, COORDINATE_DECIMALS)] for x, y in ring.coords]
    # Rounding may lay two neighbours on one another; a ring keeps each point once.
    return [point for i, point in enumerate(points) if i == 0 or point != points[i - 1]]


def rings(polygon):
    return [rounded_ring(polygon.exterior)] + [rounded_ring(hole) for hole in polygon.interiors]


def geometry(shape):
    if shape.geom_type == "MultiPolygon":
        parts = [rings(part) for part in shape.geoms]
        # The layer holds one sliver of a few metres, which rounding turns into a single point.
        return {"type": "MultiPolygon", "coordinates": [part for part in parts if len(part[0]) >= 4]}
    return {"type": "Polygon", "coordinates": rings(shape)}


def convert_countries(folder):
    table = geopandas.read_file(COUNTRIES).sort_values("name")
    lines = []
    for row in table.itertuples():
        population = int(row.pop_est)
        properties = {
            "Name": row.name,
            "Continent": row.continent,
            "Population": population,
            "GDP (million USD)": int(row.gdp_md_est),
            # A rate compares countries of any size; a total mostly maps how large they are.
            "GDP per head (USD)": None,
        }
        if population >= LEAST_POPULATION_FOR_A_RATE:
            properties["GDP per head (USD)"] = int(round(row.gdp_md_est * 1e6 / population))
        feature = {"type": "Feature", "properties": properties, "geometry": geometry(row.geometry)}
        # One feature a line: a message that names a line then names a country.
        lines.append(json.dumps(feature, ensure_ascii=False, separators=(",", ":")))
    with open(folder / "countries.geojson", "w", encoding="utf-8", newline="\n") as file:
        file.write('{"type":"FeatureCollection","features":[\n')
        file.write(",\n".join(lines))
        file.write("\n]}\n")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    convert_relief(folder)
    convert_terrain(folder)
    convert_countries(folder)
    for name in ("relief.asc", "terrain.asc", "countries.geojson"):
        print(f"{folder / name}: {(folder / name).stat().st_size} bytes")


if __name__ == "__main__":
    main()
