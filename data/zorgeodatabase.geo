; Coordinate systems of the world, starter set. Made by scripts/make_starter_database.py.
; Parameters from the EPSG Geodetic Parameter Dataset (IOGP); see NOTICE.

[General]
Group count=20
System count=39
Ellipsoid count=11
Datumtransf count=21
Unit count=4
Projection count=29

[Groups Section]
1=World
2=North Sea
3=Gulf of Mexico
4=United Kingdom
5=USA - Arizona
6=Netherlands
7=Belgium
8=France
9=USA - Texas
10=USA - Alaska
11=Caspian Sea
12=Indonesia
13=Brunei
14=Trinidad and Tobago
15=Palestine
16=Brazil
17=Romania
18=Canada
19=Australia
20=Examples

[Gp-World]
1=WGS 84 - UTM zone 15N
2=WGS 84 - UTM zone 16N
3=WGS 84 - UTM zone 30N
4=WGS 84 - UTM zone 31N
5=WGS 84 - UTM zone 32N
6=WGS 84 - UPS North (E,N)
7=WGS 84 - UPS South (E,N)
8=WGS 84 - World Mercator
System count=8

[Gp-North Sea]
1=WGS 84 - UTM zone 30N
2=WGS 84 - UTM zone 31N
3=WGS 84 - UTM zone 32N
4=ED50 - UTM zone 30N
5=ED50 - UTM zone 31N
6=ED50 - UTM zone 32N
7=ETRS89 - UTM zone 30N
8=ETRS89 - UTM zone 31N
9=ETRS89 - UTM zone 32N
System count=9

[Gp-Gulf of Mexico]
1=WGS 84 - UTM zone 15N
2=WGS 84 - UTM zone 16N
3=NAD27 - UTM zone 15N
4=NAD27 - UTM zone 16N
5=NAD27 - BLM 15N (ftUS)
6=NAD27 - BLM 16N (ftUS)
System count=6

[Gp-United Kingdom]
1=OSGB36 - British National Grid
System count=1

[Gp-USA - Arizona]
1=NAD83 - Arizona East (ft)
System count=1

[Gp-Netherlands]
1=ETRS 89 - RD (2008)
System count=1

[Gp-Belgium]
1=BD72 - Belgian Lambert 72
2=ETRS89 - Belgian Lambert 2008
System count=2

[Gp-France]
1=RGF93 - Lambert-93
2=NTF - Lambert Nord France
System count=2

[Gp-USA - Texas]
1=NAD27 - Texas South Central (ftUS)
System count=1

[Gp-USA - Alaska]
1=NAD83 - Alaska zone 1
System count=1

[Gp-Caspian Sea]
1=Pulkovo 1942 - Caspian Sea Mercator
System count=1

[Gp-Indonesia]
1=Makassar - NEIEZ
System count=1

[Gp-Brunei]
1=Timbalai 1948 - RSO Borneo (m)
System count=1

[Gp-Trinidad and Tobago]
1=Trinidad 1903 - Trinidad Grid
System count=1

[Gp-Palestine]
1=Palestine 1923 - Palestine Grid
System count=1

[Gp-Brazil]
1=SIRGAS 2000 - Brazil Polyconic
System count=1

[Gp-Romania]
1=Pulkovo 1942(58) - Stereo 70
System count=1

[Gp-Canada]
1=NAD83(CSRS) - New Brunswick Stereographic (NAD83)
2=NAD83(CSRS) - Prince Edward Island Stereographic (NAD83)
System count=2

[Gp-Australia]
1=GDA2020 - MGA zone 50
System count=1

[Gp-Examples]
1=Example - harbour grid with post corrections
2=Example - UTM zone 31N with a fixed geoid separation
System count=2

[Sys-WGS 84 - UTM zone 15N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-15N
Geoid model use statu=0
System description=EPSG 32615. No transformation.

[Sys-WGS 84 - UTM zone 16N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-16N
Geoid model use statu=0
System description=EPSG 32616. No transformation.

[Sys-WGS 84 - UTM zone 30N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-30N
Geoid model use statu=0
System description=EPSG 32630. No transformation.

[Sys-WGS 84 - UTM zone 31N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-31N
Geoid model use statu=0
System description=EPSG 32631. No transformation.

[Sys-WGS 84 - UTM zone 32N]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=UTM Zone-32N
Geoid model use statu=0
System description=EPSG 32632. No transformation.

[Sys-ED50 - UTM zone 30N]
Datumtransform name=WGS84 to ED50 (EPSG 1311)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=UTM Zone-30N
Geoid model use statu=0
System description=EPSG 23030. Transformation accuracy 1 m.

[Sys-ED50 - UTM zone 31N]
Datumtransform name=WGS84 to ED50 (EPSG 1311)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=UTM Zone-31N
Geoid model use statu=0
System description=EPSG 23031. Transformation accuracy 1 m.

[Sys-ED50 - UTM zone 32N]
Datumtransform name=WGS84 to ED50 (EPSG 1311)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=UTM Zone-32N
Geoid model use statu=0
System description=EPSG 23032. Transformation accuracy 1 m.

[Sys-ETRS89 - UTM zone 30N]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-30N
Geoid model use statu=0
System description=EPSG 25830. Transformation accuracy 1 m.

[Sys-ETRS89 - UTM zone 31N]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-31N
Geoid model use statu=0
System description=EPSG 25831. Transformation accuracy 1 m.

[Sys-ETRS89 - UTM zone 32N]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-32N
Geoid model use statu=0
System description=EPSG 25832. Transformation accuracy 1 m.

[Sys-NAD27 - UTM zone 15N]
Datumtransform name=WGS84 to NAD27 (EPSG 15853)
Unit name=Meters
Ellipsoid name=Clarke 1866
Projection name=UTM Zone-15N
Geoid model use statu=0
System description=EPSG 26715. Gulf of Mexico 95 W to 87.25 W. Transformation accuracy 5 m.

[Sys-NAD27 - UTM zone 16N]
Datumtransform name=WGS84 to NAD27 (EPSG 15856)
Unit name=Meters
Ellipsoid name=Clarke 1866
Projection name=UTM Zone-16N
Geoid model use statu=0
System description=EPSG 26716. Gulf of Mexico outer continental shelf. Transformation accuracy 8 m.

[Sys-NAD27 - BLM 15N (ftUS)]
Datumtransform name=WGS84 to NAD27 (EPSG 15853)
Unit name=US Survey Feet
Ellipsoid name=Clarke 1866
Projection name=BLM zone 15N (US survey feet)
Geoid model use statu=0
System description=EPSG 32065. Gulf of Mexico 95 W to 87.25 W. Transformation accuracy 5 m.

[Sys-NAD27 - BLM 16N (ftUS)]
Datumtransform name=WGS84 to NAD27 (EPSG 15856)
Unit name=US Survey Feet
Ellipsoid name=Clarke 1866
Projection name=BLM zone 16N (US survey feet)
Geoid model use statu=0
System description=EPSG 32066. Gulf of Mexico outer continental shelf. Transformation accuracy 8 m.

[Sys-OSGB36 - British National Grid]
Datumtransform name=WGS84 to OSGB36 (EPSG 1314)
Unit name=Meters
Ellipsoid name=Airy 1830
Projection name=British National Grid
Geoid model use statu=0
System description=EPSG 27700. Great Britain. Transformation accuracy 2 m.

[Sys-NAD83 - Arizona East (ft)]
Datumtransform name=WGS84 to NAD83 (EPSG 1188)
Unit name=Feet
Ellipsoid name=GRS 1980
Projection name=SPCS83 Arizona East zone (International feet)
Geoid model use statu=0
System description=EPSG 2222. Arizona, eastern counties, international feet. Transformation accuracy 4 m.

[Sys-GDA2020 - MGA zone 50]
Datumtransform name=ITRF2014 to GDA2020 (EPSG 8049)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-50S
Geoid model use statu=0
System description=EPSG 7850. Australia 114 E to 120 E. Time-dependent: positions move 7 cm a year against the grid.

[Sys-ETRS 89 - RD (2008)]
Datumtransform name=WGS84 to Amersfoort (EPSG 4833)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Rijksdriehoek
Geoid model use statu=0
System description=EPSG 28992. Netherlands. Transformation accuracy 1 m, at fixed heights of 43 m and 0 m.

[Sys-Pulkovo 1942(58) - Stereo 70]
Datumtransform name=WGS84 to Pulkovo 1942(58) (EPSG 15995)
Unit name=Meters
Ellipsoid name=Krassowsky 1940
Projection name=Stereo 70
Geoid model use statu=0
System description=EPSG 3844. Romania. Transformation accuracy 3 m. Latitudes from the grid are short by 3 mm at 50 km, 5 cm at 100 km, 0.9 m at 200 km and 14 m at 400 km east or west of the origin.

[Sys-NAD83(CSRS) - New Brunswick Stereographic (NAD83)]
Datumtransform name=WGS84 to NAD83(CSRS) (EPSG 1842)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=New Brunswick Stereographic (NAD83)
Geoid model use statu=0
System description=EPSG 2953. Canada, New Brunswick. Transformation accuracy 2 m. Latitudes from the grid are short by 3 mm at 50 km and 5 cm at 100 km east or west of the origin.

[Sys-NAD83(CSRS) - Prince Edward Island Stereographic (NAD83)]
Datumtransform name=WGS84 to NAD83(CSRS) (EPSG 1842)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=Prince Edward Island Stereographic (NAD83)
Geoid model use statu=0
System description=EPSG 2954. Canada, Prince Edward Island. Transformation accuracy 2 m. Latitudes from the grid are short by 3 mm at 50 km and 5 cm at 100 km east or west of the origin.

[Sys-WGS 84 - UPS North (E,N)]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=Universal Polar Stereographic North
Geoid model use statu=0
System description=EPSG 5041. No transformation.

[Sys-WGS 84 - UPS South (E,N)]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=Universal Polar Stereographic South
Geoid model use statu=0
System description=EPSG 5042. No transformation.

[Sys-RGF93 - Lambert-93]
Datumtransform name=WGS84 to RGF93 (EPSG 1671)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=Lambert-93
Geoid model use statu=0
System description=EPSG 2154. France. Transformation accuracy 1 m.

[Sys-NTF - Lambert Nord France]
Datumtransform name=WGS84 to NTF (EPSG 1193)
Unit name=Meters
Ellipsoid name=Clarke 1880 (IGN)
Projection name=Lambert Nord France
Geoid model use statu=0
System description=EPSG 27561, longitudes from Greenwich. France north of 48.14 N. Transformation accuracy 2 m.

[Sys-BD72 - Belgian Lambert 72]
Datumtransform name=WGS84 to BD72 (EPSG 15929)
Unit name=Meters
Ellipsoid name=International 1924
Projection name=Belgian Lambert 72
Geoid model use statu=0
System description=EPSG 31370. Belgium. Transformation accuracy 1 m.

[Sys-ETRS89 - Belgian Lambert 2008]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=Belgian Lambert 2008
Geoid model use statu=0
System description=EPSG 3812. Belgium. Transformation accuracy 1 m.

[Sys-NAD27 - Texas South Central (ftUS)]
Datumtransform name=WGS84 to NAD27 (EPSG 1175)
Unit name=US Survey Feet
Ellipsoid name=Clarke 1866
Projection name=SPCS27 Texas South Central zone (US survey feet)
Geoid model use statu=0
System description=EPSG 32040. Texas. Transformation accuracy 7 m.

[Sys-Pulkovo 1942 - Caspian Sea Mercator]
Datumtransform name=WGS84 to Pulkovo 1942 (EPSG 1303)
Unit name=Meters
Ellipsoid name=Krassowsky 1940
Projection name=Caspian Sea Mercator
Geoid model use statu=0
System description=EPSG 3388. Kazakhstan, Caspian Sea. Transformation accuracy 2 m.

[Sys-Makassar - NEIEZ]
Datumtransform name=WGS84 to Makassar (EPSG 1837)
Unit name=Meters
Ellipsoid name=Bessel 1841
Projection name=Netherlands East Indies Equatorial Zone
Geoid model use statu=0
System description=EPSG 3002. South west Sulawesi. Transformation accuracy not stated.

[Sys-WGS 84 - World Mercator]
Datumtransform name=No Transformation
Unit name=Meters
Ellipsoid name=WGS84
Projection name=World Mercator
Geoid model use statu=0
System description=EPSG 3395. No transformation.

[Sys-Timbalai 1948 - RSO Borneo (m)]
Datumtransform name=WGS84 to Timbalai 1948 (EPSG 1592)
Unit name=Meters
Ellipsoid name=Everest 1830 (1967 Definition)
Projection name=Rectified Skew Orthomorphic Borneo Grid (metres)
Geoid model use statu=0
System description=EPSG 29873. Transformation of Brunei, accuracy 5 m.

[Sys-NAD83 - Alaska zone 1]
Datumtransform name=WGS84 to NAD83 (EPSG 1188)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=SPCS83 Alaska zone 1 (meters)
Geoid model use statu=0
System description=EPSG 26931. Alaska panhandle. Transformation accuracy 4 m. Grid convergence is off by up to 0.02 degrees.

[Sys-Trinidad 1903 - Trinidad Grid]
Datumtransform name=WGS84 to Trinidad 1903 (EPSG 10085)
Unit name=Clarke's Links
Ellipsoid name=Clarke 1858
Projection name=Trinidad Grid
Geoid model use statu=0
System description=EPSG 30200. Trinidad, Clarke's links. Transformation accuracy 3 m.

[Sys-Palestine 1923 - Palestine Grid]
Datumtransform name=WGS84 to Palestine 1923 (EPSG 1074)
Unit name=Meters
Ellipsoid name=Clarke 1880 (Benoit)
Projection name=Palestine Grid
Geoid model use statu=0
System description=EPSG 28191. Transformation accuracy 2 m.

[Sys-SIRGAS 2000 - Brazil Polyconic]
Datumtransform name=WGS84 to SIRGAS 2000 (EPSG 15894)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=Brazil Polyconic
Geoid model use statu=0
System description=EPSG 5880. Brazil. Transformation accuracy 1 m.

[Sys-Example - harbour grid with post corrections]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-31N
Geoid model use statu=0
Post coorection statu=1
Post X coorection=1.25
Post Y coorection=-0.75
Post Z coorection=0.5
Post horizontal adjust statu=1
Post horizonal origin X=595000
Post horizonal origin Y=5759000
Post horizonal rotation=12
Post horizonal scale=1.00001
Post vertical adjust statu=1
Post vertical origin X=595000
Post vertical origin Y=5759000
Post vertical slope X=4
Post vertical slope Y=-2.5
System description=Made up, to show post corrections: shifts, a horizontal adjust about 595000 5759000 and an inclined plane.

[Sys-Example - UTM zone 31N with a fixed geoid separation]
Datumtransform name=WGS84 to ETRS89 (EPSG 1149)
Unit name=Meters
Ellipsoid name=GRS 1980
Projection name=UTM Zone-31N
Geoid model use statu=1
Manual input value=43.25
Geoid model grid=
Geoid model method=Manual
System description=Made up, to show a fixed geoid separation of 43.25 m, near that of the southern North Sea.

[DatumTransform Section]
1=No Transformation
2=WGS84 to ED50 (EPSG 1311)
3=WGS84 to OSGB36 (EPSG 1314)
4=WGS84 to NAD27 (EPSG 15853)
5=WGS84 to NAD27 (EPSG 15856)
6=WGS84 to Amersfoort (EPSG 4833)
7=WGS84 to Pulkovo 1942(58) (EPSG 15995)
8=WGS84 to NAD83(CSRS) (EPSG 1842)
9=WGS84 to RGF93 (EPSG 1671)
10=WGS84 to NTF (EPSG 1193)
11=WGS84 to BD72 (EPSG 15929)
12=WGS84 to NAD27 (EPSG 1175)
13=WGS84 to Pulkovo 1942 (EPSG 1303)
14=WGS84 to Makassar (EPSG 1837)
15=WGS84 to Timbalai 1948 (EPSG 1592)
16=WGS84 to Trinidad 1903 (EPSG 10085)
17=WGS84 to Palestine 1923 (EPSG 1074)
18=WGS84 to SIRGAS 2000 (EPSG 15894)
19=WGS84 to ETRS89 (EPSG 1149)
20=WGS84 to NAD83 (EPSG 1188)
21=ITRF2014 to GDA2020 (EPSG 8049)

[Dtf-No Transformation]
Method name=No Transformation
Source ellipsoid=WGS84
Target ellipsoid=WGS84
Description=Positions pass unchanged

[Dtf-WGS84 to ED50 (EPSG 1311)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=International 1924
Shift X=89.499821
Shift Y=93.799955
Shift Z=123.099853
Rotation X=0
Rotation Y=0
Rotation Z=0.156
Scale=-1.199998751
Description=ED50 to WGS 84 (18), EPSG 1311, Common Offshore, inverted; North Sea and Irish waters; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378388
DstSe=0.006722670022333321

[Dtf-WGS84 to OSGB36 (EPSG 1314)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Airy 1830
Shift X=-446.45599
Shift Y=125.161008
Shift Z=-542.0717
Rotation X=-0.149999496
Rotation Y=-0.247000306
Rotation Z=-0.84200009
Scale=20.489413599
Description=OSGB36 to WGS 84 (6), EPSG 1314, petroleum transformation, inverted; Great Britain; accuracy 2 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6377563.396
DstSe=0.006670539999985363

[Dtf-WGS84 to NAD27 (EPSG 15853)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1866
Shift X=7
Shift Y=-151
Shift Z=-175
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD27 to WGS 84 (81), EPSG 15853, inverted; Gulf of Mexico 95 W to 87.25 W; accuracy 5 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378206.4
DstSe=0.006768657997291273

[Dtf-WGS84 to NAD27 (EPSG 15856)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1866
Shift X=7
Shift Y=-158
Shift Z=-172
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD27 to WGS 84 (84), EPSG 15856, inverted; Gulf of Mexico outer continental shelf; accuracy 8 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378206.4
DstSe=0.006768657997291273

[Dtf-WGS84 to Amersfoort (EPSG 4833)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Bessel 1841
Shift X=-565.41357
Shift Y=-50.33599
Shift Z=-465.55138
Rotation X=0.398955823
Rotation Y=-0.343989633
Rotation Z=1.877401973
Scale=-4.072513204
Description=Amersfoort to WGS 84 (4), EPSG 4833, inverted; Netherlands; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=1
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6377397.155
DstSe=0.006674372231802145

[Dtf-WGS84 to Pulkovo 1942(58) (EPSG 15995)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Krassowsky 1940
Shift X=-2.328791
Shift Y=147.041034
Shift Z=92.079694
Rotation X=0.309000392
Rotation Y=-0.324999628
Rotation Z=-0.496999757
Scale=-5.689971135
Description=Pulkovo 1942(58) to WGS 84 (19), EPSG 15995, inverted; Romania; accuracy 3 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378245
DstSe=0.006693421622965943

[Dtf-WGS84 to NAD83(CSRS) (EPSG 1842)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD83(CSRS) to WGS 84 (1), EPSG 1842; Canada; accuracy 2 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-WGS84 to RGF93 (EPSG 1671)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=RGF93 v1 to WGS 84 (1), EPSG 1671; France, onshore and offshore; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-WGS84 to NTF (EPSG 1193)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1880 (IGN)
Shift X=168
Shift Y=60
Shift Z=-320
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NTF to WGS 84 (1), EPSG 1193, inverted; France; accuracy 2 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378249.2
DstSe=0.006803487646299935

[Dtf-WGS84 to BD72 (EPSG 15929)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=International 1924
Shift X=106.86848
Shift Y=-52.298711
Shift Z=103.724031
Rotation X=-0.336602041
Rotation Y=0.456998497
Rotation Z=-1.842199627
Scale=1.274672512
Description=BD72 to WGS 84 (3), EPSG 15929, inverted; Belgium; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378388
DstSe=0.006722670022333321

[Dtf-WGS84 to NAD27 (EPSG 1175)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1866
Shift X=8
Shift Y=-159
Shift Z=-175
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD27 to WGS 84 (6), EPSG 1175, inverted; USA west of the Mississippi, onshore; accuracy 7 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378206.4
DstSe=0.006768657997291273

[Dtf-WGS84 to Pulkovo 1942 (EPSG 1303)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Krassowsky 1940
Shift X=-43.821101
Shift Y=108.842853
Shift Z=119.584313
Rotation X=-1.45500136
Rotation Y=0.760997401
Rotation Z=-0.736997316
Scale=-0.549025078
Description=Pulkovo 1942 to WGS 84 (10), EPSG 1303, inverted; Kazakhstan, Caspian Sea; accuracy 2 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378245
DstSe=0.006693421622965943

[Dtf-WGS84 to Makassar (EPSG 1837)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Bessel 1841
Shift X=587.8
Shift Y=-519.75
Shift Z=-145.76
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=Makassar to WGS 84 (1), EPSG 1837, inverted; Indonesia, south west Sulawesi; accuracy not stated
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6377397.155
DstSe=0.006674372231802145

[Dtf-WGS84 to Timbalai 1948 (EPSG 1592)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Everest 1830 (1967 Definition)
Shift X=678
Shift Y=-670
Shift Z=48
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=Timbalai 1948 to WGS 84 (2), EPSG 1592, inverted; Brunei; accuracy 5 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6377298.556
DstSe=0.006637846630199688

[Dtf-WGS84 to Trinidad 1903 (EPSG 10085)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1858
Shift X=61
Shift Y=-285.2
Shift Z=-471.6
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=Trinidad 1903 to WGS 84 (3), EPSG 10085, inverted; Trinidad; accuracy 3 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378293.64520876
DstSe=0.006785146004726739

[Dtf-WGS84 to Palestine 1923 (EPSG 1074)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=Clarke 1880 (Benoit)
Shift X=275.724669
Shift Y=-94.75141
Shift Z=-340.894226
Rotation X=8.001126636
Rotation Y=4.419770724
Rotation Z=11.820914259
Scale=-1.001748421
Description=Palestine 1923 to WGS 84 (1), EPSG 1074, inverted; Israel, Gaza Strip, West Bank; accuracy 2 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378300.789
DstSe=0.006803480836393886

[Dtf-WGS84 to SIRGAS 2000 (EPSG 15894)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=SIRGAS 2000 to WGS 84 (1), EPSG 15894; Latin America; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-WGS84 to ETRS89 (EPSG 1149)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=ETRS89 to WGS 84 (1), EPSG 1149; Europe; accuracy 1 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-WGS84 to NAD83 (EPSG 1188)]
Method name=Bursa/Wolfe(7 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=NAD83 to WGS 84 (1), EPSG 1188; North America; accuracy 4 m
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=0
Rotation rate Y=0
Rotation rate Z=0
Scale rate=0
Epoch=0
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Dtf-ITRF2014 to GDA2020 (EPSG 8049)]
Method name=Helmert(14 Parameters)
Source ellipsoid=WGS84
Target ellipsoid=GRS 1980
Shift X=0
Shift Y=0
Shift Z=0
Rotation X=0
Rotation Y=0
Rotation Z=0
Scale=0
Description=ITRF2014 to GDA2020 (1), EPSG 8049, coordinate frame rotations with the sign of the position vector; Australia; accuracy 0.03 m. WGS84 positions are taken as ITRF2014
Shift rate X=0
Shift rate Y=0
Shift rate Z=0
Rotation rate X=-0.00150379
Rotation rate Y=-0.00118346
Rotation rate Z=-0.00120716
Scale rate=0
Epoch=2020
Fixed height=0
Fixed height forward=43
Fixed height reverse=0
SrcSma=6378137
SrcSe=0.0066943799901413165
DstSma=6378137
DstSe=0.006694380022900787

[Projections section]
1=UTM Zone-15N
2=UTM Zone-16N
3=UTM Zone-30N
4=UTM Zone-31N
5=UTM Zone-32N
6=UTM Zone-50S
7=British National Grid
8=BLM zone 15N (US survey feet)
9=BLM zone 16N (US survey feet)
10=SPCS83 Arizona East zone (International feet)
11=Rijksdriehoek
12=Stereo 70
13=New Brunswick Stereographic (NAD83)
14=Prince Edward Island Stereographic (NAD83)
15=Universal Polar Stereographic North
16=Universal Polar Stereographic South
17=Lambert-93
18=Belgian Lambert 72
19=Belgian Lambert 2008
20=SPCS27 Texas South Central zone (US survey feet)
21=Lambert Nord France
22=Caspian Sea Mercator
23=Netherlands East Indies Equatorial Zone
24=World Mercator
25=Rectified Skew Orthomorphic Borneo Grid (metres)
26=SPCS83 Alaska zone 1 (meters)
27=Trinidad Grid
28=Palestine Grid
29=Brazil Polyconic

[Prj-UTM Zone-15N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=-93
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 15     ( 93 W)
Hemisphere=Northern

[Prj-UTM Zone-16N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=-87
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 16     ( 87 W)
Hemisphere=Northern

[Prj-UTM Zone-30N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=-3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 30     (  3 W)
Hemisphere=Northern

[Prj-UTM Zone-31N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=3
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 31     (  3 E)
Hemisphere=Northern

[Prj-UTM Zone-32N]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=9
FalseEasting=500000
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 32     (  9 E)
Hemisphere=Northern

[Prj-UTM Zone-50S]
Projection type=1
Projection method=Universal Transverse Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=117
FalseEasting=500000
FalseNorthing=10000000
ScaleFactor=0.9996
GridSkew=0
UTMZone=Zone 50     (117 E)
Hemisphere=Southern

[Prj-British National Grid]
Projection type=0
Projection method=Transverse Mercator
Unit name=Meters
LatOrigin=49
LonOrigin=-2
FalseEasting=400000
FalseNorthing=-100000
ScaleFactor=0.9996012717
GridSkew=0

[Prj-BLM zone 15N (US survey feet)]
Projection type=0
Projection method=Transverse Mercator
Unit name=US Survey Feet
LatOrigin=0
LonOrigin=-93
FalseEasting=1640416.67
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0

[Prj-BLM zone 16N (US survey feet)]
Projection type=0
Projection method=Transverse Mercator
Unit name=US Survey Feet
LatOrigin=0
LonOrigin=-87
FalseEasting=1640416.67
FalseNorthing=0
ScaleFactor=0.9996
GridSkew=0

[Prj-SPCS83 Arizona East zone (International feet)]
Projection type=0
Projection method=Transverse Mercator
Unit name=Feet
LatOrigin=31
LonOrigin=-110.16666666666667
FalseEasting=700000
FalseNorthing=0
ScaleFactor=0.9999
GridSkew=0

[Prj-Rijksdriehoek]
Projection type=2
Projection method=RD
Unit name=Meters
LatOrigin=52.15616055555555
LonOrigin=5.3876388888888895
FalseEasting=155000
FalseNorthing=463000
ScaleFactor=0.9999079

[Prj-Stereo 70]
Projection type=7
Projection method=Stereographic
Unit name=Meters
LatOrigin=46
LonOrigin=25
FalseEasting=500000
FalseNorthing=500000
ScaleFactor=0.99975

[Prj-New Brunswick Stereographic (NAD83)]
Projection type=7
Projection method=Stereographic
Unit name=Meters
LatOrigin=46.5
LonOrigin=-66.5
FalseEasting=2500000
FalseNorthing=7500000
ScaleFactor=0.999912

[Prj-Prince Edward Island Stereographic (NAD83)]
Projection type=7
Projection method=Stereographic
Unit name=Meters
LatOrigin=47.25
LonOrigin=-63
FalseEasting=400000
FalseNorthing=800000
ScaleFactor=0.999912

[Prj-Universal Polar Stereographic North]
Projection type=15
Projection method=Universal Polar Stereographic
Unit name=Meters
FalseEasting=2000000
FalseNorthing=2000000
ScaleFactor=0.994
Hemisphere=Northern

[Prj-Universal Polar Stereographic South]
Projection type=15
Projection method=Universal Polar Stereographic
Unit name=Meters
FalseEasting=2000000
FalseNorthing=2000000
ScaleFactor=0.994
Hemisphere=Southern

[Prj-Lambert-93]
Projection type=3
Projection method=Lambert 2 Parallel
Unit name=Meters
LatOrigin=46.5
LonOrigin=3
FalseEasting=700000
FalseNorthing=6600000
1stParallel=44
2ndParallel=49

[Prj-Belgian Lambert 72]
Projection type=3
Projection method=Lambert 2 Parallel
Unit name=Meters
LatOrigin=90
LonOrigin=4.367486666666666
FalseEasting=150000.013
FalseNorthing=5400088.438
1stParallel=49.8333339
2ndParallel=51.16666723333333

[Prj-Belgian Lambert 2008]
Projection type=3
Projection method=Lambert 2 Parallel
Unit name=Meters
LatOrigin=50.797815
LonOrigin=4.359215833333333
FalseEasting=649328
FalseNorthing=665262
1stParallel=49.833333333333336
2ndParallel=51.166666666666664

[Prj-SPCS27 Texas South Central zone (US survey feet)]
Projection type=3
Projection method=Lambert 2 Parallel
Unit name=US Survey Feet
LatOrigin=27.833333333333332
LonOrigin=-99
FalseEasting=2000000
FalseNorthing=0
1stParallel=28.383333333333333
2ndParallel=30.283333333333335

[Prj-Lambert Nord France]
Projection type=12
Projection method=Lambert 1 Parallel
Unit name=Meters
LatOrigin=49.5
LonOrigin=2.33722917
FalseEasting=600000
FalseNorthing=200000
ScaleFactor=0.999877341

[Prj-Caspian Sea Mercator]
Projection type=4
Projection method=Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=51
FalseEasting=0
FalseNorthing=0
ScaleFactor=1
GridSkew=0
LatTrueScale=42

[Prj-Netherlands East Indies Equatorial Zone]
Projection type=4
Projection method=Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=110
FalseEasting=3900000
FalseNorthing=900000
ScaleFactor=0.997
GridSkew=0
LatTrueScale=0

[Prj-World Mercator]
Projection type=4
Projection method=Mercator
Unit name=Meters
LatOrigin=0
LonOrigin=0
FalseEasting=0
FalseNorthing=0
ScaleFactor=1
GridSkew=0
LatTrueScale=0

[Prj-Rectified Skew Orthomorphic Borneo Grid (metres)]
Projection type=13
Projection method=Hotine Oblique Mercator(B)
Unit name=Meters
LatOrigin=4
LonOrigin=115
EastingAtCentre=590476.87
NorthingAtCentre=442857.65
ScaleFactor=0.99984
InitialAzimuth=53.31582047222222
HotineGridSkew=53.13010236111111

[Prj-SPCS83 Alaska zone 1 (meters)]
Projection type=9
Projection method=Hotine Oblique Mercator(A)
Unit name=Meters
LatOrigin=57
LonOrigin=-133.66666666666666
FalseEasting=5000000
FalseNorthing=-5000000
ScaleFactor=0.9999
InitialAzimuth=323.13010236111114
HotineGridSkew=323.13010236111114

[Prj-Trinidad Grid]
Projection type=8
Projection method=Cassini_Soldner
Unit name=Clarke's Links
LatOrigin=10.441666666666666
LonOrigin=-61.333333333333336
FalseEasting=430000
FalseNorthing=325000
ScaleFactor=1

[Prj-Palestine Grid]
Projection type=8
Projection method=Cassini_Soldner
Unit name=Meters
LatOrigin=31.734096944444445
LonOrigin=35.21208055555556
FalseEasting=170251.555
FalseNorthing=126867.909
ScaleFactor=1

[Prj-Brazil Polyconic]
Projection type=14
Projection method=Polyconic
Unit name=Meters
LatOrigin=0
LonOrigin=-54
FalseEasting=5000000
FalseNorthing=10000000

[Ellipsoids section]
1=WGS84
2=GRS 1980
3=International 1924
4=Airy 1830
5=Clarke 1866
6=Bessel 1841
7=Clarke 1880 (IGN)
8=Everest 1830 (1967 Definition)
9=Clarke 1858
10=Clarke 1880 (Benoit)
11=Krassowsky 1940

[Elp-WGS84]
SemiMajor=6378137
EccSqrd=0.0066943799901413165

[Elp-GRS 1980]
SemiMajor=6378137
EccSqrd=0.006694380022900787

[Elp-International 1924]
SemiMajor=6378388
EccSqrd=0.006722670022333321

[Elp-Airy 1830]
SemiMajor=6377563.396
EccSqrd=0.006670539999985363

[Elp-Clarke 1866]
SemiMajor=6378206.4
EccSqrd=0.006768657997291273

[Elp-Bessel 1841]
SemiMajor=6377397.155
EccSqrd=0.006674372231802145

[Elp-Clarke 1880 (IGN)]
SemiMajor=6378249.2
EccSqrd=0.006803487646299935

[Elp-Everest 1830 (1967 Definition)]
SemiMajor=6377298.556
EccSqrd=0.006637846630199688

[Elp-Clarke 1858]
SemiMajor=6378293.64520876
EccSqrd=0.006785146004726739

[Elp-Clarke 1880 (Benoit)]
SemiMajor=6378300.789
EccSqrd=0.006803480836393886

[Elp-Krassowsky 1940]
SemiMajor=6378245
EccSqrd=0.006693421622965943

[Units section]
Meters=1,m
Feet=0.3048,ft
US Survey Feet=0.3048006096012192,ftUS
Clarke's Links=0.201166195164,lkCla
