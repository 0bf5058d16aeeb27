"""How the delivered database is made from the EPSG tables of proj.db; make_world_database.py runs it."""
